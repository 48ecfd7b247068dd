#include "platform/OneAtATime.h"

#include <memory>

namespace platform {

namespace {

struct Waiting
{
    std::deque<Failure> failures;
    bool telling = false;
};

} // namespace

FailureHook oneAtATime(FailureHook tell)
{
    return [tell = std::move(tell), waiting = std::make_shared<Waiting>()](const Failure& failure) {
        waiting->failures.push_back(failure);
        if (std::exchange(waiting->telling, true))
            return;
        while (!waiting->failures.empty()) {
            const Failure next = waiting->failures.front();
            waiting->failures.pop_front();
            try {
                tell(next);
            } catch (...) {
                // A report must never become a failure of its own.
            }
        }
        waiting->telling = false;
    };
}

} // namespace platform
