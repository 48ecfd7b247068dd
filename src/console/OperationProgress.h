#pragma once

#include <QtGlobal>
#include <optional>

namespace console {

// How far an operation is, for the operator's eye: which record of which pass, since when an answer is
// awaited, how long it may still take. Times are milliseconds of a clock that only runs forward.
class OperationProgress
{
public:
    void begin(int records, int passes, qint64 now);
    void takeRecord(bool awaitsAnswer, qint64 now);
    void awaitAnswer(qint64 now) { awaitedSince_ = now; }
    void answerCame() { awaitedSince_.reset(); }
    void recordDone() { ++done_; }
    void end() { *this = {}; }

    bool running() const { return records_ > 0; }
    int records() const { return records_; }
    // 1 and up inside the pass in progress; 0 before the first record.
    int record() const { return taken_ == 0 ? 0 : (taken_ - 1) % records_ + 1; }
    int passes() const { return passes_; }
    int pass() const { return taken_ == 0 ? 1 : (taken_ - 1) / records_ + 1; }
    // Of all passes together.
    int percent() const { return running() ? taken_ * 100 / (records_ * passes_) : 0; }
    // Records that came to a good end, and whether all were taken up.
    int done() const { return done_; }
    bool allTaken() const { return taken_ >= records_ * passes_; }
    // Whole seconds that the answer has been awaited; none when no answer is to come.
    std::optional<int> secondsWaiting(qint64 now) const;
    // Seconds that the rest takes at the pace so far, never less than the protocol's own pace. While an
    // answer stays out it does not grow.
    int secondsLeft(qint64 now) const;

private:
    int records_ = 0;
    int passes_ = 0;
    int taken_ = 0;
    int done_ = 0;
    qint64 begun_ = 0;
    qint64 lastTaken_ = 0;
    std::optional<qint64> awaitedSince_;
};

} // namespace console
