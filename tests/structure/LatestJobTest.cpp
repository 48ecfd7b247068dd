#include "structure/LatestJob.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <gtest/gtest.h>

using structure::LatestJob;
using structure::StopFlag;

namespace {

// Results come back through an event loop.
class LatestJobTest : public testing::Test
{
protected:
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    int count_ = 1;
    QCoreApplication application_{count_, arguments_};
    QObject receiver;
    std::vector<int> results;
    LatestJob<int> job{receiver, [this](int result) { results.push_back(result); }};
};

TEST_F(LatestJobTest, BringsTheResultToTheReceiversThread)
{
    Qt::HANDLE worker = nullptr;
    job.start([&worker](const StopFlag&) {
        worker = QThread::currentThreadId();
        return 7;
    });
    EXPECT_TRUE(job.isRunning());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !results.empty(); }));
    EXPECT_EQ(results, std::vector<int>{7});
    EXPECT_FALSE(job.isRunning());
    EXPECT_NE(worker, QThread::currentThreadId());
}

TEST_F(LatestJobTest, TheNewestWinsWhateverTheFormerOneStillDoes)
{
    QSemaphore started, released;
    job.start([&](const StopFlag& stop) {
        started.release();
        released.acquire();
        return stop ? -1 : 1;
    });
    started.acquire();
    job.start([](const StopFlag&) { return 2; });
    job.start([](const StopFlag&) { return 3; });
    released.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !job.isRunning(); }));
    EXPECT_EQ(results, std::vector<int>{3});
}

TEST_F(LatestJobTest, ACancelledJobTellsNothing)
{
    QSemaphore started, released;
    job.start([&](const StopFlag&) {
        started.release();
        released.acquire();
        return 1;
    });
    started.acquire();
    job.cancel();
    EXPECT_FALSE(job.isRunning());
    released.release();
    job.start([](const StopFlag&) { return 2; });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !results.empty(); }));
    EXPECT_EQ(results, std::vector<int>{2});
}

TEST_F(LatestJobTest, ItsEndWaitsForTheJob)
{
    bool ended = false;
    {
        LatestJob<int> brief(receiver, [](int) {});
        QSemaphore started;
        brief.start([&](const StopFlag& stop) {
            started.release();
            while (!stop)
                QThread::yieldCurrentThread();
            ended = true;
            return 0;
        });
        started.acquire();
    }
    EXPECT_TRUE(ended);
}

} // namespace
