#pragma once

// The names of this room that others only pass on.
namespace events {

class EventLog;

} // namespace events
