#include "platform/Guard.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

class GuardTest : public testing::Test
{
protected:
    GuardTest() : former_(setFailureHook([this](const Failure& failure) { failures_.push_back(failure); })) {}
    ~GuardTest() override { setFailureHook(former_); }

    std::vector<Failure> failures_;

private:
    FailureHook former_;
};

TEST_F(GuardTest, GivesTheResultOfWorkThatSucceeds)
{
    EXPECT_EQ(guarded("Module/Work", [] { return 7; }), 7);
    EXPECT_TRUE(failures_.empty());
}

TEST_F(GuardTest, ReportsUnderTheProceduresNameAndGivesTheEmptyResult)
{
    EXPECT_FALSE(guarded("Module/Work", []() -> bool { fail(errors::kDivisionByZero, "Division by zero"); }));
    ASSERT_EQ(failures_.size(), 1u);
    EXPECT_EQ(failures_[0].number, 11);
    EXPECT_EQ(failures_[0].description, "Division by zero");
    EXPECT_EQ(failures_[0].procedure, "Module/Work");
}

TEST_F(GuardTest, AForeignExceptionIsAFailureToo)
{
    EXPECT_EQ(guarded("Module/Work", []() -> QString { throw std::out_of_range("no such row"); }), QString());
    ASSERT_EQ(failures_.size(), 1u);
    EXPECT_EQ(failures_[0].number, errors::kInternal);
    EXPECT_EQ(failures_[0].description, "no such row");
}

TEST_F(GuardTest, AHookThatThrowsEndsQuietly)
{
    setFailureHook([](const Failure&) { throw std::runtime_error("the disk is gone too"); });
    EXPECT_NO_THROW(guarded("Module/Work", [] { fail(errors::kDiskFull, "Disk full"); }));
}

TEST_F(GuardTest, CountsWhatIsReported)
{
    const int before = failuresReported();
    reportFailure({1, "a", "Module/A"});
    reportFailure({2, "b", "Module/B"});
    EXPECT_EQ(failuresReported(), before + 2);
}

TEST_F(GuardTest, HeldFailuresAreToldInTheirOrder)
{
    FailureQueue queue;
    {
        const FailureQueue::Holding holding(queue);
        reportFailure({1, "a", "Module/A"});
        reportFailure({2, "b", "Module/B"});
        EXPECT_TRUE(failures_.empty());
    }
    reportFailure({3, "c", "Module/C"});
    EXPECT_EQ(failures_.size(), 1u);
    queue.tell();
    ASSERT_EQ(failures_.size(), 3u);
    EXPECT_EQ(failures_[1].procedure, "Module/A");
    EXPECT_EQ(failures_[2].procedure, "Module/B");
    queue.tell();
    EXPECT_EQ(failures_.size(), 3u) << "once";
}

TEST_F(GuardTest, WhatFailsWhileABoxStandsWaitsForItsEnd)
{
    FailureQueue queue;
    QStringList steps;
    const auto hold = [&](const char* name) {
        const FailureQueue::Holding holding(queue);
        reportFailure({1, name, name});
    };
    const FailureHook outer = setFailureHook([&](const Failure& failure) {
        steps << failure.procedure;
        if (failure.procedure == "first") {
            hold("second");
            queue.tell();
            steps << "closed";
        }
    });
    hold("first");
    queue.tell();
    setFailureHook(outer);
    EXPECT_EQ(steps, QStringList({"first", "closed", "second"}));
}

} // namespace
