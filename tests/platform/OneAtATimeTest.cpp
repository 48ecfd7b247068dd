#include "platform/OneAtATime.h"

#include <QStringList>
#include <gtest/gtest.h>

using platform::Failure;

namespace {

// The program goes on while the box of a failure stands, and what fails then waits for the box's end.
TEST(OneAtATime, AFailureWhileAnotherIsToldWaits)
{
    QStringList told;
    int depth = 0;
    platform::FailureHook hook;
    hook = platform::oneAtATime([&](const Failure& failure) {
        EXPECT_EQ(++depth, 1);
        told << failure.procedure;
        if (failure.procedure == "first") {
            hook({1, {}, "second"});
            hook({1, {}, "third"});
        }
        --depth;
    });
    hook({1, {}, "first"});
    EXPECT_EQ(told, QStringList({"first", "second", "third"}));
    hook({1, {}, "fourth"});
    EXPECT_EQ(told.size(), 4);
}

TEST(OneAtATime, AReportThatFailsIsNoEnd)
{
    int told = 0;
    const platform::FailureHook hook = platform::oneAtATime([&](const Failure&) {
        ++told;
        throw 1;
    });
    hook({});
    hook({});
    EXPECT_EQ(told, 2);
}

} // namespace
