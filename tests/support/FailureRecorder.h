#pragma once

#include "platform/Guard.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace support {

// Collects the failures that procedures report while it lives, and puts the former hook back.
class FailureRecorder
{
public:
    FailureRecorder()
        : former_(platform::setFailureHook(
              [this](const platform::Failure& failure) { failures_.push_back(failure); }))
    {
    }
    ~FailureRecorder() { platform::setFailureHook(std::move(former_)); }
    FailureRecorder(const FailureRecorder&) = delete;
    FailureRecorder& operator=(const FailureRecorder&) = delete;

    const std::vector<platform::Failure>& failures() const { return failures_; }

    // The failures so far, which are then forgotten.
    std::vector<platform::Failure> take() { return std::exchange(failures_, {}); }

    // Expects exactly one failure, and forgets it.
    void expectOne(int number, const char* procedure)
    {
        const auto failures = take();
        ASSERT_EQ(failures.size(), 1u) << "under " << procedure;
        EXPECT_EQ(failures[0].number, number);
        EXPECT_EQ(failures[0].procedure.toStdString(), procedure);
        EXPECT_FALSE(failures[0].description.isEmpty());
    }

    // Expects a failure under this name, among others perhaps, and forgets them all.
    void expectUnder(const QString& procedure)
    {
        QStringList names;
        for (const auto& failure : take())
            names << failure.procedure;
        EXPECT_TRUE(names.contains(procedure))
            << procedure.toStdString() << ", but failed: " << names.join(QStringLiteral(", ")).toStdString();
    }

    void expectNone()
    {
        for (const auto& failure : take())
            ADD_FAILURE() << failure.procedure.toStdString() << ": " << failure.description.toStdString();
    }

private:
    std::vector<platform::Failure> failures_;
    platform::FailureHook former_;
};

} // namespace support
