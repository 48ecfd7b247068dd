#pragma once

// The names of this room that others only pass on.
namespace session {

class CommandHandlers;
class CommandStates;
class Lookup;
class Main;
class Printing;
class Texts;
struct COMPortSettings;
struct Session;
struct UserRecord;

} // namespace session
