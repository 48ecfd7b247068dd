#include "events/EventLog.h"

#include "events/LogFile.h"
#include "events/LoggedText.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Recordset.h"
#include "platform/TextFile.h"
#include "platform/Words.h"
#include "session/Helpers.h"
#include "session/Session.h"

namespace events {

using namespace platform;
using namespace session;

namespace {

const QString kStoredDate = QStringLiteral("yyyy-MM-dd HH:mm:ss");

const QString kInsert = QStringLiteral(
    R"(INSERT INTO tbEvent (IDType, Date_Reg, Source, Equipment, Instrument, Description)
       VALUES (%1, '%2', %3, %4, %5, %6);)");

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

QString logLine(const QString& IDType, const QDateTime& When, const QString& Source, const QString& Equipment,
                const QString& Instrument, const QString& Description, int codePage)
{
    return LineWriter(codePage)
        .field(IDType, 1)
        .field(When.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")), 19)
        .field(Source, 3)
        .field(Equipment, kLoggedNameWidth)
        .field(Instrument, kLoggedNameWidth)
        .field(Description, 255)
        .line();
}

QString logLine(const Recordset& event, int codePage)
{
    return logLine(event.text("IDType"), storedDate(event.text("Date_Reg")), event.text("Source"),
                   event.text("Equipment"), event.text("Instrument"), event.text("Description"), codePage);
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
    typeOfLine_ = IDType;
    Add_Event_ReadWrite(shown, Description);
    typeOfLine_ = kInformation;
    Add_Event_Db(IDType, When, Source, Equipment, Instrument, Description);
}

void EventLog::Add_Event_Db(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                            const QString& Instrument, const QString& Description)
{
    if (onEvent)
        onEvent(IDType, When, Source, Equipment, Instrument, Description);
    guarded("Module/Add_Event_Db", [&] {
        const auto keep = [&] {
            kept_ << logLine(QString::number(IDType), When, QString::number(Source), Equipment, Instrument,
                             Description, session_.CodePage);
        };
        if (!hasCompany())
            return keep();
        try {
            session_.cnDatabase.Execute(kInsert.arg(
                QString::number(IDType), When.toString(kStoredDate), QString::number(Source),
                composeTextOrNull(Equipment), composeTextOrNull(Instrument), composeTextOrNull(Description)));
        } catch (const RuntimeError&) {
            // The caller of an alarm will not come back with it.
            keep();
            throw;
        }
    });
}

bool EventLog::Add_Event_ReadWrite(QString& When, const QString& Description)
{
    return guarded("Module/Add_Event_ReadWrite", [&] {
        const QDateTime when = storedDate(When);
        if (!when.isValid())
            failInWords(errors::kTypeMismatch, "event.nodate", {When});
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
        Flushed& flushed = flushedOfCompany();
        flushed.failed = true;
        Recordset rows;
        if (hasCompany())
            openRows(rows, flushed);
        for (int onDisk = flushed.rows; onDisk > 0 && !rows.Eof(); --onDisk)
            rows.MoveNext();
        if (!rows.Eof() || !kept_.isEmpty())
            flush(rows, flushed);
        flushed.failed = false;
    });
}

// What the company doesn't hold needn't wait for it.
void EventLog::openRows(Recordset& rows, Flushed& flushed)
{
    try {
        rows.Open(QStringLiteral("SELECT * FROM tbEvent"), session_.cnDatabase);
    } catch (const RuntimeError&) {
        if (!kept_.isEmpty())
            flush(rows, flushed);
        throw;
    }
}

// What was kept without a company goes first; on a full disk each side forgets just what is in its place.
void EventLog::flush(Recordset& rows, Flushed& flushed)
{
    const QString name = QStringLiteral("Log/%1_%2.log")
                             .arg(session_.ExeName, clock_.now().toString(QStringLiteral("yyyyMMddHHmmss")));
    LogFile file(session_.appFile(name));
    const auto putInPlace = [&] {
        const int lines = file.putInPlace();
        const int ofKept = std::min(lines, int(kept_.size()));
        kept_.remove(0, ofKept);
        flushed.rows += lines - ofKept;
    };
    try {
        for (const QString& line : std::as_const(kept_))
            file.append(encode(line, session_.CodePage) + kSystemLineEnd);
        for (; !rows.Eof(); rows.MoveNext())
            file.append(encode(logLine(rows, session_.CodePage), session_.CodePage) + kSystemLineEnd);
    } catch (...) {
        putInPlace();
        throw;
    }
    putInPlace();
}

bool EventLog::owes() const
{
    const auto flushed = flushed_.find(session_.dbFile());
    return !kept_.isEmpty() || (hasCompany() && flushed != flushed_.end() && flushed->second.failed);
}

void EventLog::deleteEvents()
{
    if (!hasCompany())
        return;
    Flushed& flushed = flushedOfCompany();
    if (flushed.failed)
        session_.cnDatabase.Execute(
            QStringLiteral(
                "DELETE FROM tbEvent WHERE rowid IN (SELECT rowid FROM tbEvent ORDER BY rowid LIMIT %1)")
                .arg(flushed.rows));
    else
        session_.cnDatabase.Execute(QStringLiteral("DELETE FROM tbEvent"));
    flushed.rows = 0;
}

bool EventLog::hasCompany() const
{
    return session_.cnDatabase.State() == Connection::Opened;
}

EventLog::Flushed& EventLog::flushedOfCompany()
{
    return flushed_[session_.dbFile()];
}

} // namespace events
