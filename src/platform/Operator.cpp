#include "platform/Operator.h"

namespace platform {

void Operator::setPointer(Pointer pointer)
{
    resting_ = pointer;
    setJobs(jobs_);
}

void Operator::setJobs(int jobs)
{
    const Pointer pointer = jobs > 0 ? Pointer::Hourglass : resting_;
    if (pointer != shown_)
        showPointer(pointer);
    shown_ = pointer;
    jobs_ = jobs;
}

} // namespace platform
