#pragma once

#include <QDateTime>
#include <QString>

namespace events {
class EventLog;
}

namespace bus {

enum class AlarmBlock
{
    First,
    Second
};

// Takes one block of an alarm report apart into events: "<plant><instrument><description>..." or
// "<plant><description>". Between two fields stands exactly one character, which is not looked at; what is
// before the first "<" or behind the last ">" is ignored. A block without the expected fields ends in the
// procedure's own failure; the rows made so far stay.
void Extract_Event_Allarm(const QString& text, AlarmBlock block, events::EventLog& events,
                          const QDateTime& when);

} // namespace bus
