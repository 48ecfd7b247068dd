#include "console/OperationProgress.h"

#include <gtest/gtest.h>

using console::OperationProgress;

namespace {

TEST(OperationProgressTest, CountsTheRecordsOfEachPassAnew)
{
    OperationProgress progress;
    EXPECT_FALSE(progress.running());
    EXPECT_EQ(progress.record(), 0);
    progress.begin(2, 3, 1000);
    EXPECT_TRUE(progress.running());
    EXPECT_EQ(progress.record(), 0);
    for (const int expected : {1, 2, 1, 2, 1, 2}) {
        progress.takeRecord(false, 2000);
        EXPECT_EQ(progress.record(), expected);
        EXPECT_EQ(progress.records(), 2);
    }
    progress.end();
    EXPECT_FALSE(progress.running());
}

TEST(OperationProgressTest, TellsHowLongAnAnswerIsAwaited)
{
    OperationProgress progress;
    progress.begin(2, 1, 0);
    EXPECT_FALSE(progress.secondsWaiting(5000));
    progress.takeRecord(true, 3000);
    EXPECT_EQ(progress.secondsWaiting(3000), 0);
    EXPECT_EQ(progress.secondsWaiting(6999), 3);
    progress.awaitAnswer(6000);
    EXPECT_EQ(progress.secondsWaiting(7000), 1);
    progress.takeRecord(false, 9000);
    EXPECT_FALSE(progress.secondsWaiting(9000));
}

TEST(OperationProgressTest, TheTimeLeftIsNeverBelowTheProtocolsPace)
{
    OperationProgress progress;
    progress.begin(10, 1, 0);
    EXPECT_EQ(progress.secondsLeft(0), 33) << "ten records and the end, three seconds each";
    progress.takeRecord(true, 3000);
    EXPECT_EQ(progress.secondsLeft(3000), 30);
    progress.takeRecord(true, 23000);
    EXPECT_EQ(progress.secondsLeft(23000), 104) << "nine steps at 11.5 s";
    for (int record = 3; record <= 12; ++record)
        progress.takeRecord(true, 23000);
    EXPECT_EQ(progress.secondsLeft(23000), 0);
}

} // namespace
