#include "console/ConsoleStates.h"

#include <gtest/gtest.h>

using console::ConsoleStates;
using console::statesFor;

namespace {

// Every command on, or every one off: a start that shows what is left as it was.
ConsoleStates all(bool on)
{
    return {on, on, on, on, on, on, on, on, on, on, on, on, on};
}

TEST(ConsoleStatesTest, AnIdleLineOffersTheConnection)
{
    const ConsoleStates expected{.mnuFile = true,
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
    EXPECT_EQ(statesFor(session::kLineIdle, all(true)), expected);
    EXPECT_EQ(statesFor(session::kLineIdle, all(false)), expected);
}

TEST(ConsoleStatesTest, AConnectionOffersItsOperations)
{
    const ConsoleStates expected{.mnuFile = true,
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
    EXPECT_EQ(statesFor(session::kConnected, all(true)), expected);
    EXPECT_EQ(statesFor(session::kConnected, all(false)), expected);
}

TEST(ConsoleStatesTest, ABusyLineClosesTheButtonsAndLeavesFourMenus)
{
    for (const bool on : {true, false}) {
        const ConsoleStates states = statesFor(session::kBusy, all(on));
        EXPECT_EQ(states, (ConsoleStates{.mnuFile = false,
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

TEST(ConsoleStatesTest, AClosedPortChangesNothing)
{
    for (const bool on : {true, false})
        EXPECT_EQ(statesFor(session::kPortClosed, all(on)), all(on));
}

} // namespace
