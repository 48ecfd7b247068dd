#include "platform/Guard.h"

#include <utility>

namespace platform {

namespace {
FailureHook& installedHook()
{
    static FailureHook hook;
    return hook;
}

int reported = 0;
} // namespace

FailureHook setFailureHook(FailureHook hook)
{
    return std::exchange(installedHook(), std::move(hook));
}

void reportFailure(const Failure& failure) noexcept
{
    ++reported;
    try {
        if (installedHook())
            installedHook()(failure);
    } catch (...) {
        // A report must never become a failure of its own.
    }
}

int failuresReported()
{
    return reported;
}

FailureQueue::Holding::Holding(FailureQueue& queue)
    : queue_(queue),
      former_(setFailureHook([&queue](const Failure& failure) { queue.waiting_.push_back(failure); }))
{
    ++queue_.holding_;
}

FailureQueue::Holding::~Holding()
{
    setFailureHook(std::move(former_));
    --queue_.holding_;
}

void FailureQueue::tell() noexcept
{
    if (telling_ || holding_ > 0)
        return;
    telling_ = true;
    while (!waiting_.empty()) {
        const Failure failure = waiting_.front();
        waiting_.pop_front();
        reportFailure(failure);
    }
    telling_ = false;
}

} // namespace platform
