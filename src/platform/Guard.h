#pragma once

#include "platform/RuntimeError.h"

#include <deque>
#include <functional>
#include <type_traits>

namespace platform {

// What a failed procedure leaves behind: the error and the procedure's own name ("Module/Compose_Key").
struct Failure
{
    int number = 0;
    QString description;
    QString procedure;
    bool silent = false; // no box, only the report
};

using FailureHook = std::function<void(const Failure&)>;

// Installs the one process-wide hook that shows the critical box and writes the report. Returns the former
// one, so that a test can put it back.
FailureHook setFailureHook(FailureHook hook);

// Hands a failure to the hook. Never throws, whatever the hook does.
void reportFailure(const Failure& failure) noexcept;

// How many failures were reported so far: whether something failed in between shows in the difference.
int failuresReported();

// Failures that wait to be told, so that no box stands in the middle of a work. They are told one at a time:
// what comes while a box stands waits for its end.
class FailureQueue
{
public:
    // Takes up what is reported while it lives.
    class Holding
    {
    public:
        explicit Holding(FailureQueue& queue);
        ~Holding();
        Holding(const Holding&) = delete;
        Holding& operator=(const Holding&) = delete;

    private:
        FailureQueue& queue_;
        FailureHook former_;
    };

    // Does nothing inside a work that takes failures up: they are told behind the outermost.
    void tell() noexcept;

private:
    std::deque<Failure> waiting_;
    int holding_ = 0;
    bool telling_ = false;
};

// Runs a procedure's work. A failure in it is reported under `procedure` and the value-initialised result
// (false, 0, "") comes back: no exception crosses a procedure. Clean-up is the work's own, by destructors.
template <class Work>
auto guarded(const char* procedure, Work&& work) noexcept -> std::invoke_result_t<Work>
{
    using Result = std::invoke_result_t<Work>;
    try {
        return work();
    } catch (const RuntimeError& error) {
        reportFailure({error.number, error.description, QString::fromUtf8(procedure)});
    } catch (const std::exception& error) {
        reportFailure({errors::kInternal, QString::fromUtf8(error.what()), QString::fromUtf8(procedure)});
    }
    if constexpr (!std::is_void_v<Result>)
        return Result{};
}

} // namespace platform
