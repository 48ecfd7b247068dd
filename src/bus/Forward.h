#pragma once

// The names of this room that others only pass on.
namespace bus {

class Bus;
class StatusPanels;

} // namespace bus
