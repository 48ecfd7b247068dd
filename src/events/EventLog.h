#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>

namespace events {

enum EventType
{
    kInformation = 1,
    kWarning = 2,
    kError = 3
};
enum EventSource
{
    kAlarms = 1,
    kReadWrite = 2
};

// What happens on a connection: rows of tbEvent while it lives, one log file when it ends.
class EventLog
{
public:
    EventLog(session::Session& session, platform::Operator& op, platform::Clock& clock);

    // The one entry of the read/write side: a line on the console's list and a row of tbEvent.
    void Add_Event(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                   const QString& Instrument, const QString& Description);
    // The row alone; empty texts are stored as NULL. With no company open, or one that can't take it, it is
    // kept for the next log file.
    void Add_Event_Db(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                      const QString& Instrument, const QString& Description);
    // The line alone; `When` is rewritten as "yyyy/mm/dd HH:MM:SS".
    bool Add_Event_ReadWrite(QString& When, const QString& Description);

    // Flushes what was kept and tbEvent into one new log file. Nothing to flush makes no file. On a full disk
    // the file holds the lines that still found their place.
    void CreateLog_App();
    // Whether a log file still lacks what a flush should have brought to it, or what no company took.
    bool owes() const;
    // Empties tbEvent, when a company is open, but for the rows that a failed flush couldn't bring to the
    // disk: these go out with the next one. Fails as any statement does: called inside a procedure.
    void deleteEvents();

    // Receives each event, before it is stored.
    std::function<void(int IDType, const QDateTime& When, int Source, const QString& Equipment,
                       const QString& Instrument, const QString& Description)>
        onEvent;
    // Receives each line of the console's list.
    std::function<void(const QString& when, const QString& description)> onLine;
    // The type of the event whose line is being received; a line of its own is information.
    int typeOfLine() const { return typeOfLine_; }

private:
    // How far the flush of a company's table has come.
    struct Flushed
    {
        int rows = 0; // the first of the table, whose lines are on the disk already
        bool failed = false;
    };
    Flushed& flushedOfCompany();
    void openRows(platform::Recordset& rows, Flushed& flushed);
    void flush(platform::Recordset& rows, Flushed& flushed);
    bool hasCompany() const;

    std::map<QString, Flushed> flushed_; // by the company's path
    int typeOfLine_ = kInformation;
    session::Session& session_;
    platform::Operator& operator_;
    platform::Clock& clock_;
    QStringList kept_; // lines of events that no company took
};

} // namespace events
