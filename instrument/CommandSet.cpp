#include "instrument/CommandSet.h"

namespace instrument {

void CommandSet::add(const QByteArray& address, quint8 command, CommandKind kind)
{
    const QByteArray opening = address + char(command);
    if (!kinds_.contains(opening))
        kinds_.insert(opening, kind);
    beginnings_.insert(opening.first(1));
    beginnings_.insert(opening.first(2));
}

CommandKind CommandSet::kindOf(const QByteArray& opening) const
{
    return kinds_.value(opening, CommandKind::Unknown);
}

bool CommandSet::mayOpen(const QByteArray& bytes) const
{
    return beginnings_.contains(bytes);
}

} // namespace instrument
