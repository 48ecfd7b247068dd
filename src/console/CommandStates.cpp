#include "console/CommandStates.h"

namespace console {

CommandStates statesFor(int status, CommandStates before)
{
    switch (status) {
    case 0:
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
    case 1:
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
    case 2:
        before.mnuFile = before.mnuCommands = false;
        before.Connect = before.Disconnect = before.AutoDisconnect = before.Simulator = false;
        before.Read = before.Write = before.Exit = false;
        return before;
    default:
        return before;
    }
}

} // namespace console
