#pragma once

#include "events/Forward.h"
#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

namespace bus {

enum class AlarmBlock
{
    First,
    Second
};

// One event of a report.
struct AlarmRow
{
    QString equipment;
    QString instrument;
    QString description;

    bool operator==(const AlarmRow&) const = default;
};

struct ParsedAlarmBlock
{
    std::vector<AlarmRow> rows;
    std::optional<platform::RuntimeError> failure; // what ended the parsing, behind these rows
};

// Takes one block of an alarm report apart: "<plant><instrument><description>..." or "<plant><description>".
// Between two fields stands exactly one character, which is not looked at; what is before the first "<" or
// behind the last ">" is ignored.
ParsedAlarmBlock parseAlarmBlock(const QString& text, AlarmBlock block);

// Makes events of the rows, all of the same moment; returns how many.
int storeEvents(const std::vector<AlarmRow>& rows, events::EventLog& events, const QDateTime& when);

// Makes events of a block and returns how many. A block without the expected fields ends in the procedure's
// own failure; the rows made so far stay.
int Extract_Event_Allarm(const QString& text, AlarmBlock block, events::EventLog& events,
                         const QDateTime& when);

} // namespace bus
