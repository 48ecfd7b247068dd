#pragma once

#include "platform/Operator.h"
#include "structure/Structure.h"

namespace structure {

// The progress bar prgUpdate and the hourglass for the length of one job; both go on every way out. The job
// holds the thread and a transaction: the bar paints itself at each step, and no event comes in between.
class UpdateProgress
{
public:
    UpdateProgress(Structure& structure, platform::Operator& op) : structure_(structure), busy_(op)
    {
        emit structure_.updateShown(true);
    }
    ~UpdateProgress() { emit structure_.updateShown(false); }
    UpdateProgress(const UpdateProgress&) = delete;
    UpdateProgress& operator=(const UpdateProgress&) = delete;

    void to(int percent) { emit structure_.updateProgress(percent); }

private:
    Structure& structure_;
    platform::BusyPointer busy_;
};

} // namespace structure
