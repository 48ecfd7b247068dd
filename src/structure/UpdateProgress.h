#pragma once

#include "platform/Operator.h"
#include "structure/Structure.h"

namespace structure {

// The progress bar prgUpdate and the hourglass for the length of one job; both go on every way out. The job
// holds the thread, so each step asks for a repaint.
class UpdateProgress
{
public:
    UpdateProgress(Structure& structure, platform::Operator& op)
        : structure_(structure), operator_(op), busy_(op)
    {
        emit structure_.updateShown(true);
    }
    ~UpdateProgress() { emit structure_.updateShown(false); }
    UpdateProgress(const UpdateProgress&) = delete;
    UpdateProgress& operator=(const UpdateProgress&) = delete;

    void to(int percent)
    {
        emit structure_.updateProgress(percent);
        operator_.repaint();
    }

private:
    Structure& structure_;
    platform::Operator& operator_;
    platform::BusyPointer busy_;
};

} // namespace structure
