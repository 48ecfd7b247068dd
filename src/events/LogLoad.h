#pragma once

#include "events/EventFilter.h"
#include "events/LineSplitter.h"

#include <QFile>
#include <QStringList>
#include <optional>

namespace events {

class EventStore;

// The reading of all event logs of a folder, slice by slice, so that whoever waits for it can do other things
// between.
class LogLoad
{
public:
    struct Source
    {
        QString folder;
        QString exeName;
        int codePage = 1252;
    };

    // Lists the files; a folder that isn't there fails. The store is the caller's and gets the events that
    // pass.
    LogLoad(const Source& source, const EventFilter& filter, EventStore& store);

    // Reads on. True while there is more. A line that is no event fails: then the load is over.
    bool step();

    int percent() const { return percent_; }
    qint64 shown() const { return shown_; }
    qint64 total() const { return total_; }
    // The bounds of all lines with a date, filtered or not; kNoStamp when there is none.
    Stamp oldest() const { return oldest_; }
    Stamp newest() const { return newest_; }
    // The files that couldn't be read, or not to their end, each with the reason.
    const QStringList& unread() const { return unread_; }

private:
    void openNext();
    qint64 read();
    void take(QByteArrayView line);
    void keep(const LogLine& line);
    void unreadable();

    QString folder_, exeName_;
    int codePage_;
    LineFilter filter_;
    EventStore& store_;

    QStringList names_;
    qsizetype next_ = 0;
    std::optional<QFile> file_;
    bool atStart_ = false; // of the file
    bool utf8_ = false;
    qint64 line_ = 0; // of the file
    LineSplitter splitter_;
    QByteArray buffer_;

    int percent_ = 0;
    qint64 shown_ = 0, total_ = 0;
    Stamp oldest_ = kNoStamp, newest_ = kNoStamp;
    QStringList unread_;
};

} // namespace events
