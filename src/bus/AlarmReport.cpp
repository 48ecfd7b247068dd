#include "bus/AlarmReport.h"

#include "events/EventLog.h"
#include "platform/Guard.h"

namespace bus {

using namespace platform;

namespace {

// Walks the fields of a block: each ends at a ">", the next begins two characters behind it.
class FieldReader
{
public:
    explicit FieldReader(const QString& text) : text_(text), begin_(text.indexOf(QLatin1Char('<')) + 1)
    {
        if (begin_ == 0)
            fail(errors::kInvalidCall, QStringLiteral("The alarm report has no \"<\"."));
    }

    QString next()
    {
        const qsizetype end = text_.indexOf(QLatin1Char('>'), begin_);
        if (end < 0)
            fail(errors::kInvalidCall, QStringLiteral("A field of the alarm report has no end."));
        const QString field = text_.mid(begin_, end - begin_);
        begin_ = end + 2;
        return field;
    }

    bool hasMore() const { return text_.indexOf(QLatin1Char('>'), begin_) >= 0; }

private:
    const QString& text_;
    qsizetype begin_;
};

} // namespace

void Extract_Event_Allarm(const QString& text, AlarmBlock block, events::EventLog& events,
                          const QDateTime& when)
{
    guarded("Module/Extract_Event_Allarm", [&] {
        FieldReader fields(text);
        const QString plant = fields.next();
        const QString second = fields.next();
        if (block == AlarmBlock::Second) {
            events.Add_Event_Db(events::kWarning, when, events::kAlarms, plant, {}, second);
            return;
        }
        do
            events.Add_Event_Db(events::kWarning, when, events::kAlarms, plant, second, fields.next());
        while (fields.hasMore());
    });
}

} // namespace bus
