#include "events/EventLog.h"

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/TextFile.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <algorithm>

namespace events {

using namespace platform;
using namespace session;

namespace {

const QString kStoredDate = QStringLiteral("yyyy-MM-dd HH:mm:ss");

// A field of a log line: left-justified, padded or cut to its width. What would end the line gives a blank,
// and a character that the file's code page lacks is counted as the one that stands for it there.
QString fixed(const QString& value, int width, int codePage)
{
    QString text = decode(encode(value, codePage), codePage);
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c < QLatin1Char(' '); }, QLatin1Char(' '));
    return text.leftJustified(width, QLatin1Char(' '), true);
}

QString logLine(const Recordset& event, int codePage)
{
    const auto field = [&](const QString& value, int width) { return fixed(value, width, codePage); };
    const QDateTime when = QDateTime::fromString(event.text("Date_Reg"), kStoredDate);
    return field(event.text("IDType"), 1) + field(when.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")), 19) +
           field(event.text("Source"), 3) + field(event.text("Equipment"), 50) +
           field(event.text("Instrument"), 50) + field(event.text("Description"), 255);
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
        const QDateTime when = QDateTime::fromString(When, kStoredDate);
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
