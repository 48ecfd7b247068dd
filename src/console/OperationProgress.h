#pragma once

#include <QtGlobal>
#include <optional>

namespace console {

// How far an operation is, for the operator's eye: which record of how many, since when an answer is awaited,
// how long it may still take. Times are milliseconds of a clock that only runs forward.
class OperationProgress
{
public:
    void begin(int records, int passes, qint64 now);
    void takeRecord(bool awaitsAnswer, qint64 now);
    void awaitAnswer(qint64 now) { awaitedSince_ = now; }
    void end() { *this = {}; }

    bool running() const { return records_ > 0; }
    int records() const { return records_; }
    // 1 and up inside the pass in progress; 0 before the first record.
    int record() const { return taken_ == 0 ? 0 : (taken_ - 1) % records_ + 1; }
    // Whole seconds that the answer has been awaited; none when no answer is to come.
    std::optional<int> secondsWaiting(qint64 now) const;
    // Seconds that the rest takes at the pace so far, never less than the protocol's own pace.
    int secondsLeft(qint64 now) const;

private:
    int records_ = 0;
    int passes_ = 0;
    int taken_ = 0;
    qint64 begun_ = 0;
    std::optional<qint64> awaitedSince_;
};

} // namespace console
