#include "bus/AlarmReport.h"

#include "events/EventLog.h"
#include "platform/Guard.h"
#include "platform/Words.h"

namespace bus {

namespace {

namespace errors = platform::errors;

// Walks the fields of a block: each ends at a ">", the next begins two characters behind it.
class FieldReader
{
public:
    explicit FieldReader(const QString& text) : text_(text), begin_(text.indexOf(QLatin1Char('<')) + 1)
    {
        if (begin_ == 0)
            platform::failInWords(errors::kInvalidCall, "alarm.nostart");
    }

    QString next()
    {
        const qsizetype end = text_.indexOf(QLatin1Char('>'), begin_);
        if (end < 0)
            platform::failInWords(errors::kInvalidCall, "alarm.noend");
        const QString field = text_.mid(begin_, end - begin_);
        begin_ = end + 2;
        return field;
    }

    bool hasMore() const { return QStringView(text_).mid(begin_).contains(u'>'); }

private:
    const QString& text_;
    qsizetype begin_;
};

void readRows(const QString& text, AlarmBlock block, std::vector<AlarmRow>& rows)
{
    FieldReader fields(text);
    const QString plant = fields.next();
    const QString second = fields.next();
    if (block == AlarmBlock::Second) {
        rows.push_back({plant, {}, second});
        return;
    }
    do
        rows.push_back({plant, second, fields.next()});
    while (fields.hasMore());
}

} // namespace

ParsedAlarmBlock parseAlarmBlock(const QString& text, AlarmBlock block)
{
    ParsedAlarmBlock parsed;
    try {
        readRows(text, block, parsed.rows);
    } catch (const platform::RuntimeError& failure) {
        parsed.failure = failure;
    }
    return parsed;
}

int storeEvents(const std::vector<AlarmRow>& rows, events::EventLog& events, const QDateTime& when)
{
    for (const AlarmRow& row : rows)
        events.Add_Event_Db(events::kWarning, when, events::kAlarms, row.equipment, row.instrument,
                            row.description);
    return int(rows.size());
}

int Extract_Event_Allarm(const QString& text, AlarmBlock block, events::EventLog& events,
                         const QDateTime& when)
{
    int stored = 0;
    platform::guarded("Module/Extract_Event_Allarm", [&] {
        const ParsedAlarmBlock parsed = parseAlarmBlock(text, block);
        stored = storeEvents(parsed.rows, events, when);
        if (parsed.failure)
            throw *parsed.failure;
    });
    return stored;
}

} // namespace bus
