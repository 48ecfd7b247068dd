#include "platform/VirtualClock.h"

#include <gtest/gtest.h>

using namespace platform;
using Order = VirtualClock::Order;
using Steps = std::vector<std::string>;

namespace {

class VirtualClockTest : public testing::Test
{
protected:
    std::unique_ptr<Timer> timer(const std::string& name, int milliseconds)
    {
        std::unique_ptr<Timer> made = clock_.makeTimer();
        made->onTick = [this, name] { steps_.push_back(name); };
        made->start(milliseconds);
        return made;
    }
    void post(const std::string& name)
    {
        clock_.post([this, name] { steps_.push_back(name); });
    }
    void blockAtOnce(double seconds)
    {
        clock_.post([this, seconds] { clock_.block(seconds); });
        clock_.settle();
    }

    VirtualClock clock_;
    Steps steps_;
};

TEST_F(VirtualClockTest, BehindABlockTheDueTimersTickBeforeWhatWasPosted)
{
    const auto late = timer("late", 20), early = timer("early", 10), later = timer("not due", 90);
    blockAtOnce(0.05);
    post("event");
    clock_.settle();
    EXPECT_EQ(steps_, (Steps{"early", "late", "event"}));
}

TEST_F(VirtualClockTest, TheOtherOrderTakesWhatWasPostedFirst)
{
    clock_.setOrder(Order::EventsFirst);
    const auto late = timer("late", 20), early = timer("early", 10);
    blockAtOnce(0.05);
    post("event");
    post("another");
    clock_.settle();
    EXPECT_EQ(steps_, (Steps{"event", "another", "early", "late"}));
}

// A tick that blocks as long as its interval is due again at once.
TEST_F(VirtualClockTest, NoTimerTicksTwiceBeforeWhatWasPosted)
{
    const auto busy = clock_.makeTimer();
    busy->onTick = [this] {
        steps_.push_back("tick");
        post("event");
        clock_.block(0.01);
    };
    busy->start(10);
    clock_.run(35);
    EXPECT_EQ(steps_, (Steps{"tick", "event", "tick", "event", "tick"}));
}

TEST_F(VirtualClockTest, WhatFollowsATickMayLetTheSameTimerTick)
{
    const auto one = clock_.makeTimer();
    int boxes = 0;
    one->onTick = [this] { steps_.push_back("tick"); };
    one->onTicked = [&] {
        if (boxes++ == 0) {
            clock_.run(10);
            steps_.push_back("closed");
        }
    };
    one->start(10);
    clock_.run(10);
    EXPECT_EQ(steps_, (Steps{"tick", "tick", "closed"}));
}

TEST_F(VirtualClockTest, WhoWaitsForSomethingIsToldWhetherItCame)
{
    const auto tick = timer("tick", 30);
    const auto ticked = [this] { return !steps_.empty(); };
    EXPECT_FALSE(clock_.runUntil(ticked, 29));
    EXPECT_EQ(clock_.elapsed(), 29);
    EXPECT_TRUE(clock_.runUntil(ticked, 1000));
    EXPECT_EQ(clock_.elapsed(), 30);
    EXPECT_TRUE(clock_.runUntil(ticked, 0));
}

TEST_F(VirtualClockTest, AWaitThatFitsIntoTheDayBeginsAtOnce)
{
    VirtualClock evening{QDateTime(QDate(2026, 3, 14), QTime(23, 59, 56, 999))};
    awaitRoomInTheDay(evening, 3);
    EXPECT_EQ(evening.elapsed(), 0);
    EXPECT_EQ(waitOnDayClock(evening, 3), 3);
}

TEST_F(VirtualClockTest, AWaitThatWouldSpanMidnightBeginsWithTheNewDay)
{
    VirtualClock evening{QDateTime(QDate(2026, 3, 14), QTime(23, 59, 57))};
    awaitRoomInTheDay(evening, 3);
    EXPECT_EQ(evening.now(), QDateTime(QDate(2026, 3, 15), QTime(0, 0)));
    EXPECT_EQ(waitOnDayClock(evening, 3), 3);
}

} // namespace
