#include "instrument/Outbox.h"

#include <algorithm>

namespace instrument {

std::optional<qint64> Outbox::nextDue() const
{
    if (waiting_.empty())
        return std::nullopt;
    return waiting_.begin()->first;
}

QList<QByteArray> Outbox::takeDue(qint64 nowMs)
{
    QList<QByteArray> due;
    const auto end = waiting_.upper_bound(nowMs);
    for (auto run = waiting_.begin(); run != end; ++run)
        due += run->second;
    waiting_.erase(waiting_.begin(), end);
    return due;
}

std::optional<qint64> earlier(std::optional<qint64> a, std::optional<qint64> b)
{
    if (a && b)
        return std::min(*a, *b);
    return a ? a : b;
}

} // namespace instrument
