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
    begun_ = now;
}

void OperationProgress::takeRecord(bool awaitsAnswer, qint64 now)
{
    ++taken_;
    awaitedSince_ = awaitsAnswer ? std::make_optional(now) : std::nullopt;
}

std::optional<int> OperationProgress::secondsWaiting(qint64 now) const
{
    return awaitedSince_ ? std::make_optional(int((now - *awaitedSince_) / 1000)) : std::nullopt;
}

int OperationProgress::secondsLeft(qint64 now) const
{
    const qint64 pace =
        taken_ > 0 ? std::max(kMillisecondsARecord, (now - begun_) / taken_) : kMillisecondsARecord;
    const int remaining = records_ * passes_ - taken_ + 1;
    return int((std::max(remaining, 0) * pace + 999) / 1000);
}

} // namespace console
