#include "instrument/FailureModes.h"

namespace instrument {

void FailureModes::set(Failure failure, qint64 amount, std::optional<int> count)
{
    if (count && *count <= 0)
        active_.erase(failure);
    else
        active_[failure] = {amount, count};
}

std::optional<qint64> FailureModes::strike(Failure failure)
{
    const auto found = active_.find(failure);
    if (found == active_.end())
        return std::nullopt;
    const qint64 amount = found->second.amount;
    if (found->second.left && --*found->second.left == 0)
        active_.erase(found);
    return amount;
}

const QStringList& FailureModes::names()
{
    static const QStringList names{"no-answer", "late",       "short",        "byte-by-byte", "trailing",
                                   "wrong",     "no-carrier", "modem-silent", "gone"};
    return names;
}

std::optional<Failure> FailureModes::fromName(const QString& name)
{
    const qsizetype position = names().indexOf(name);
    if (position < 0)
        return std::nullopt;
    return Failure(position);
}

qint64 FailureModes::usualAmount(Failure failure)
{
    switch (failure) {
    case Failure::Late:
        return 5000;
    case Failure::ByteByByte:
        return 50;
    case Failure::Trailing:
        return 3;
    default:
        return 0;
    }
}

QString FailureModes::description() const
{
    QStringList parts;
    for (const auto& [failure, active] : active_) {
        QString part = names()[int(failure)];
        if (active.amount != 0)
            part += QStringLiteral(" %1").arg(active.amount);
        parts +=
            part + (active.left ? QStringLiteral(" for %1").arg(*active.left) : QStringLiteral(" for good"));
    }
    return parts.isEmpty() ? QStringLiteral("none") : parts.join(QStringLiteral(", "));
}

} // namespace instrument
