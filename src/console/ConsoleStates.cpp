#include "console/ConsoleStates.h"

namespace console {

ConsoleStates statesFor(session::LineStatus status, ConsoleStates before)
{
    switch (status) {
    case session::kLineIdle:
        return {.mnuFile = true,
                .mnuConnect = true,
                .mnuDisconnect = false,
                .mnuAutoDisconnect = true,
                .mnuSimulator = true,
                .mnuCommands = false,
                .Connect = true,
                .Disconnect = false,
                .AutoDisconnect = true,
                .Simulator = true,
                .Read = false,
                .Write = false,
                .Exit = true};
    case session::kConnected:
        return {.mnuFile = true,
                .mnuConnect = false,
                .mnuDisconnect = true,
                .mnuAutoDisconnect = true,
                .mnuSimulator = false,
                .mnuCommands = true,
                .Connect = false,
                .Disconnect = true,
                .AutoDisconnect = true,
                .Simulator = false,
                .Read = true,
                .Write = true,
                .Exit = true};
    case session::kBusy:
        before.mnuFile = before.mnuCommands = false;
        before.Connect = before.Disconnect = before.AutoDisconnect = before.Simulator = false;
        before.Read = before.Write = before.Exit = false;
        return before;
    case session::kPortClosed:
        break;
    }
    return before;
}

} // namespace console
