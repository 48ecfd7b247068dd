#pragma once

namespace console {

// Which menus and buttons of the console may be used.
struct CommandStates
{
    bool mnuFile = true;
    bool mnuConnect = true;
    bool mnuDisconnect = false;
    bool mnuAutoDisconnect = true;
    bool mnuSimulator = true;
    bool mnuCommands = false; // holds read and write

    bool Connect = true;
    bool Disconnect = false;
    bool AutoDisconnect = true;
    bool Simulator = true;
    bool Read = false;
    bool Write = false;
    bool Exit = true;

    bool operator==(const CommandStates&) const = default;
};

// The states behind a change of the line's status: 0 idle, 1 connected, 2 busy; -1 and any other change
// nothing, and a busy line leaves most menus as they were.
CommandStates statesFor(int status, CommandStates before);

} // namespace console
