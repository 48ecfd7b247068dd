#include "console/OperationProgress.h"

#include <algorithm>

namespace console {

namespace {
constexpr qint64 kMillisecondsARecord = 3000;
}

void OperationProgress::begin(int records, int passes, qint64 now)
{
    *this = {};
    records_ = records;
    passes_ = passes;
    begun_ = lastTaken_ = now;
}

void OperationProgress::takeRecord(bool awaitsAnswer, qint64 now)
{
    ++taken_;
    lastTaken_ = now;
    awaitedSince_ = awaitsAnswer ? std::make_optional(now) : std::nullopt;
}

std::optional<int> OperationProgress::secondsWaiting(qint64 now) const
{
    return awaitedSince_ ? std::make_optional(int((now - *awaitedSince_) / 1000)) : std::nullopt;
}

int OperationProgress::secondsLeft(qint64 now) const
{
    const qint64 pace =
        taken_ > 0 ? std::max(kMillisecondsARecord, (lastTaken_ - begun_) / taken_) : kMillisecondsARecord;
    const qint64 remaining = std::max(records_ * passes_ - taken_ + 1, 0) * pace;
    // Of the record in hand one turn's time at most has gone by.
    return int((std::max<qint64>(remaining - std::min(now - lastTaken_, pace), 0) + 999) / 1000);
}

} // namespace console
