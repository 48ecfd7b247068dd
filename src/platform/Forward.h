#pragma once

// The names of this room that others only pass on.
namespace platform {

class Clock;
class Connection;
class DesktopOperator;
class Machine;
class Operator;
class Printer;
class Recordset;
class SerialPort;
class Timer;
struct RuntimeError;

} // namespace platform
