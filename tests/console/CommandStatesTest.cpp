#include "console/CommandStates.h"

#include <gtest/gtest.h>

using console::CommandStates;
using console::statesFor;

namespace {

// Every command on, or every one off: a start that shows what is left as it was.
CommandStates all(bool on)
{
    return {on, on, on, on, on, on, on, on, on, on, on, on, on};
}

TEST(CommandStatesTest, AnIdleLineOffersTheConnection)
{
    const CommandStates expected{.mnuFile = true,
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
    EXPECT_EQ(statesFor(0, all(true)), expected);
    EXPECT_EQ(statesFor(0, all(false)), expected);
}

TEST(CommandStatesTest, AConnectionOffersItsOperations)
{
    const CommandStates expected{.mnuFile = true,
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
    EXPECT_EQ(statesFor(1, all(true)), expected);
    EXPECT_EQ(statesFor(1, all(false)), expected);
}

TEST(CommandStatesTest, ABusyLineClosesTheButtonsAndLeavesFourMenus)
{
    for (const bool on : {true, false}) {
        const CommandStates states = statesFor(2, all(on));
        EXPECT_EQ(states, (CommandStates{.mnuFile = false,
                                         .mnuConnect = on,
                                         .mnuDisconnect = on,
                                         .mnuAutoDisconnect = on,
                                         .mnuSimulator = on,
                                         .mnuCommands = false,
                                         .Connect = false,
                                         .Disconnect = false,
                                         .AutoDisconnect = false,
                                         .Simulator = false,
                                         .Read = false,
                                         .Write = false,
                                         .Exit = false}));
    }
}

TEST(CommandStatesTest, AClosedPortChangesNothing)
{
    for (const int status : {-1, 3, 200})
        for (const bool on : {true, false})
            EXPECT_EQ(statesFor(status, all(on)), all(on)) << status;
}

} // namespace
