#pragma once

#include "session/Session.h"

namespace console {

// Which menus and buttons of the console may be used.
struct ConsoleStates
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

    bool operator==(const ConsoleStates&) const = default;
};

// The states behind a change of the line's status. A closed port changes nothing, and a busy line leaves most
// menus as they were.
ConsoleStates statesFor(session::LineStatus status, ConsoleStates before);

} // namespace console
