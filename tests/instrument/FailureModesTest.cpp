#include "instrument/FailureModes.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(FailureModes, StrikesAsOftenAsTold)
{
    FailureModes failures;
    EXPECT_FALSE(failures.strike(Failure::Late));
    failures.set(Failure::Late, 5000, 2);
    EXPECT_EQ(failures.strike(Failure::Late), 5000);
    EXPECT_FALSE(failures.strike(Failure::Short)) << "one failure doesn't use up another";
    EXPECT_EQ(failures.strike(Failure::Late), 5000);
    EXPECT_FALSE(failures.strike(Failure::Late));
}

TEST(FailureModes, StrikesForGoodUntilSwitchedOff)
{
    FailureModes failures;
    failures.set(Failure::NoAnswer, 0);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(failures.strike(Failure::NoAnswer), 0);
    failures.clear(Failure::NoAnswer);
    EXPECT_FALSE(failures.strike(Failure::NoAnswer));
}

TEST(FailureModes, TellsWhatIsOn)
{
    FailureModes failures;
    EXPECT_EQ(failures.description(), QStringLiteral("none"));
    failures.set(Failure::Late, 5000, 2);
    failures.set(Failure::Wrong, 0);
    EXPECT_EQ(failures.description(), QStringLiteral("late 5000 for 2, wrong for good"));
    failures.set(Failure::Late, 5000, 0);
    EXPECT_FALSE(failures.isActive(Failure::Late)) << "no occasion is no failure";
    failures.clearAll();
    EXPECT_EQ(failures.description(), QStringLiteral("none"));
}

TEST(FailureModes, EachHasAName)
{
    for (int i = 0; i <= int(Failure::Gone); ++i)
        EXPECT_EQ(FailureModes::fromName(FailureModes::names().value(i)), Failure(i));
    EXPECT_FALSE(FailureModes::fromName(QStringLiteral("broken")));
}

} // namespace
