#include "platform/QtClock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gtest/gtest.h>
#include <vector>

using namespace platform;

namespace {

class QtClockTest : public testing::Test
{
protected:
    // Lets events come in until the condition holds; it must, in the end.
    static void waitUntil(const std::function<bool()>& condition)
    {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    int argc_ = 1;
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    QCoreApplication application_{argc_, argv_};
    QtClock clock_;
    const std::unique_ptr<Timer> timer_ = clock_.makeTimer();
    const std::unique_ptr<Timer> other_ = clock_.makeTimer();
};

TEST_F(QtClockTest, ATimerTicksOnUntilItIsStopped)
{
    int ticks = 0;
    timer_->onTick = [&] {
        if (++ticks == 3)
            timer_->stop();
    };
    timer_->start(1);
    waitUntil([&] { return ticks == 3; });
    int others = 0;
    other_->onTick = [&] { ++others; };
    other_->start(2);
    waitUntil([&] { return others == 5; });
    EXPECT_EQ(ticks, 3);
}

TEST_F(QtClockTest, ATickHoldsBackTheNextOneWhileABoxStandsInIt)
{
    std::vector<std::string> events;
    timer_->onTick = [&] {
        events.push_back("tick");
        if (events.size() > 1) {
            timer_->stop();
            return;
        }
        // The box, during which the timer is started anew and falls due more than once.
        timer_->start(1);
        int others = 0;
        other_->onTick = [&] { ++others; };
        other_->start(3);
        waitUntil([&] { return others == 5; });
        other_->stop();
        events.push_back("end");
    };
    timer_->start(1);
    waitUntil([&] { return events.size() == 3; });
    EXPECT_EQ(events, (std::vector<std::string>{"tick", "end", "tick"}));
}

// As long as its interval, as the beeps of an alarm are: the operator's click still comes in between.
TEST_F(QtClockTest, ATickThatBlocksLetsOthersInBetween)
{
    std::vector<std::string> events;
    timer_->onTick = [&] {
        events.push_back("tick");
        clock_.block(0.02);
        if (events.size() == 1)
            QMetaObject::invokeMethod(
                &application_,
                [&] {
                    events.push_back("click");
                    timer_->stop();
                },
                Qt::QueuedConnection);
    };
    timer_->start(20);
    waitUntil([&] { return !events.empty() && events.back() == "click"; });
    EXPECT_LE(events.size(), 3u) << "at the latest behind the next tick";
    EXPECT_FALSE(timer_->Enabled());
}

TEST_F(QtClockTest, WhatIsStoppedInItsTickStaysStopped)
{
    int ticks = 0, others = 0;
    other_->onTick = [&] { ++others; };
    timer_->onTick = [&] {
        ++ticks;
        other_->start(2);
        waitUntil([&] { return others == 3; });
        timer_->stop();
    };
    timer_->start(1);
    waitUntil([&] { return others == 8; });
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(timer_->Interval(), 1);
}

} // namespace
