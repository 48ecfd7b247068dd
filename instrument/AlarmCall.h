#pragma once

#include "instrument/Outbox.h"
#include "instrument/Plant.h"
#include "instrument/Timings.h"
#include "instrument/WordWatch.h"

namespace instrument {

// The part of an incoming call that is the same on every link: the first block, "OK", the second block, the
// end.
class AlarmCall
{
public:
    // The other side has said "CONNECT" at `nowMs`.
    AlarmCall(AlarmReport report, const Timings& timings, qint64 nowMs);

    void receive(char byte, qint64 nowMs);

    // The blocks that are due now.
    QList<QByteArray> advance(qint64 nowMs);
    std::optional<qint64> nextDue() const;

    bool isOver(qint64 nowMs) const { return nowMs >= endMs_; }
    // Whether the first block was acknowledged, and so the second one sent.
    bool isAcknowledged() const { return acknowledged_; }

private:
    qint64 blockDelay() const;
    void put(const QByteArray& block, qint64 nowMs);

    AlarmReport report_;
    Timings timings_;
    Outbox blocks_;
    WordWatch acknowledgement_{"OK"};
    bool acknowledged_ = false;
    qint64 endMs_ = 0;
};

} // namespace instrument
