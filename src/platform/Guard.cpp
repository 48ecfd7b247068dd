#include "platform/Guard.h"

#include <utility>

namespace platform {

namespace {
FailureHook& installedHook()
{
    static FailureHook hook;
    return hook;
}
} // namespace

FailureHook setFailureHook(FailureHook hook)
{
    return std::exchange(installedHook(), std::move(hook));
}

void reportFailure(const Failure& failure) noexcept
{
    try {
        if (installedHook())
            installedHook()(failure);
    } catch (...) {
        // A report must never become a failure of its own.
    }
}

} // namespace platform
