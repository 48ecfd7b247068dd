#include "events/EventLog.h"

#include "events/LoggedText.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/TextFile.h"
#include "session/Helpers.h"
#include "session/Session.h"

namespace events {

using namespace platform;
using namespace session;

namespace {

const QString kStoredDate = QStringLiteral("yyyy-MM-dd HH:mm:ss");

// A date as it is stored, free of any time zone: an instrument's clock may tell an hour that the summer time
// here leaves out. A text of another form gives an invalid date.
QDateTime storedDate(const QString& text)
{
    const QDate date = QDate::fromString(text.left(10), kStoredDate.left(10));
    const QTime time = QTime::fromString(text.mid(10), kStoredDate.mid(10));
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

// Lays the fields of one line side by side, each left-justified and padded or cut to its width.
class LineWriter
{
public:
    explicit LineWriter(int codePage) : codePage_(codePage) {}

    LineWriter& field(const QString& text, int width)
    {
        line_ += loggedText(text, codePage_).leftJustified(width, QLatin1Char(' '), true);
        return *this;
    }
    const QString& line() const { return line_; }

private:
    int codePage_;
    QString line_;
};

QString logLine(const Recordset& event, int codePage)
{
    const QDateTime when = storedDate(event.text("Date_Reg"));
    return LineWriter(codePage)
        .field(event.text("IDType"), 1)
        .field(when.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")), 19)
        .field(event.text("Source"), 3)
        .field(event.text("Equipment"), kLoggedNameWidth)
        .field(event.text("Instrument"), kLoggedNameWidth)
        .field(event.text("Description"), 255)
        .line();
}

} // namespace

EventLog::EventLog(Session& session, Operator& op, Clock& clock)
    : session_(session), operator_(op), clock_(clock)
{
}

void EventLog::Add_Event(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                         const QString& Instrument, const QString& Description)
{
    QString shown = When.toString(kStoredDate);
    Add_Event_ReadWrite(shown, Description);
    Add_Event_Db(IDType, When, Source, Equipment, Instrument, Description);
}

void EventLog::Add_Event_Db(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                            const QString& Instrument, const QString& Description)
{
    guarded("Module/Add_Event_Db", [&] {
        session_.strSQL =
            QStringLiteral("INSERT INTO tbEvent (IDType, Date_Reg, Source, Equipment, Instrument, "
                           "Description) VALUES(") +
            QString::number(IDType) + QStringLiteral(", '") + When.toString(kStoredDate) +
            QStringLiteral("', ") + QString::number(Source) + QStringLiteral(", ") +
            composeTextOrNull(Equipment) + QStringLiteral(", ") + composeTextOrNull(Instrument) +
            QStringLiteral(", ") + composeTextOrNull(Description) + QStringLiteral(");");
        session_.cnDatabase.Execute(session_.strSQL);
    });
}

bool EventLog::Add_Event_ReadWrite(QString& When, const QString& Description)
{
    return guarded("Module/Add_Event_ReadWrite", [&] {
        const QDateTime when = storedDate(When);
        if (!when.isValid())
            fail(errors::kTypeMismatch, QStringLiteral("'%1' is not a date.").arg(When));
        When = when.toString(QStringLiteral("yyyy/MM/dd HH:mm:ss"));
        if (onLine)
            onLine(When, Description);
        return true;
    });
}

void EventLog::CreateLog_App()
{
    guarded("Module/CreateLog_App", [&] {
        BusyPointer busy(operator_);
        Recordset rows;
        rows.Open(QStringLiteral("SELECT * FROM tbEvent"), session_.cnDatabase);
        if (rows.RecordCount() == 0)
            return;
        const QString name =
            QStringLiteral("Log/%1_%2.log")
                .arg(session_.ExeName, clock_.now().toString(QStringLiteral("yyyyMMddHHmmss")));
        TextWriter file(session_.appFile(name), session_.CodePage);
        for (; !rows.Eof(); rows.MoveNext())
            file.WriteLine(logLine(rows, session_.CodePage));
        file.commit();
    });
}

void EventLog::deleteEvents()
{
    session_.cnDatabase.Execute(QStringLiteral("DELETE FROM tbEvent"));
}

} // namespace events
