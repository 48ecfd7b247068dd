#include "instrument/AlarmCall.h"

namespace instrument {

AlarmCall::AlarmCall(AlarmReport report, const Timings& timings, qint64 nowMs)
    : report_(std::move(report)), timings_(timings), endMs_(nowMs + timings.callPatience)
{
    put(report_.firstBlock, nowMs);
}

void AlarmCall::receive(char byte, qint64 nowMs)
{
    if (acknowledged_ || !acknowledgement_.sees(byte))
        return;
    acknowledged_ = true;
    put(report_.secondBlock, nowMs);
    endMs_ = nowMs + blockDelay() + timings_.callEnd;
}

QList<QByteArray> AlarmCall::advance(qint64 nowMs)
{
    return blocks_.takeDue(nowMs);
}

std::optional<qint64> AlarmCall::nextDue() const
{
    return earlier(blocks_.nextDue(), endMs_);
}

qint64 AlarmCall::blockDelay() const
{
    return report_.blockDelay.value_or(timings_.callBlock);
}

void AlarmCall::put(const QByteArray& block, qint64 nowMs)
{
    if (!block.isEmpty())
        blocks_.put(nowMs + blockDelay(), block);
}

} // namespace instrument
