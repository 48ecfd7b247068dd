#pragma once

#include "events/EventFilter.h"
#include "events/EventModel.h"
#include "events/LogLoad.h"
#include "platform/Operator.h"

#include <QTimer>
#include <optional>

namespace session {
struct Session;
class Texts;
} // namespace session

namespace events {

// What frmEventViewer shows and does: the events of all log files in one list. Every refresh reads the files
// again, a slice at a time, so that the window lives while a long load goes on.
class EventViewer : public QObject
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
    };

    explicit EventViewer(const Surroundings& surroundings);

    // The window comes: no filter, no bounds but now.
    void load(const QDateTime& now);
    // The window goes: a load ends at once, and the events' memory is free.
    void unload();

    // Begins to read all files; a load under way is given up. What a short load reads stands in the list on
    // return. True unless the load has failed.
    bool Read_Log();
    bool isLoading() const { return load_.has_value(); }
    int percent() const { return load_ ? load_->percent() : 100; }

    void Check_List();
    void UnCheck_List();
    void Filter_Events();
    void All_Events();

    EventModel& list() { return list_; }
    EventFilter& filter() { return filter_; }
    bool isFiltered() const { return isTrue(filter_.Active); }

    // The dates of the oldest and the newest event found.
    const QDateTime& txtMinDate() const { return txtMinDate_; }
    const QDateTime& txtMaxDate() const { return txtMaxDate_; }

    // The status bar's panel "Info".
    QString info() const;
    // What stands beside it: how many events the list shows when it is narrowed.
    QString narrowed() const;
    // Which files couldn't be read, and the same with every reason; "" when all could.
    QString unread() const;
    QString unreadReasons() const { return unread_.join(QLatin1Char('\n')); }

    // Pulls the list's words in, in the current language.
    void relabel();

signals:
    // A load has begun, gone on or ended; the filter has changed.
    void changed();

private:
    struct Counts
    {
        bool filtered = false;
        qint64 shown = 0;
        qint64 total = 0;
    };

    bool readSlice();
    void endLoad();
    void keepResult();
    void setAllChecked(bool checked);

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    EventModel list_;
    EventFilter filter_;
    QDateTime txtMinDate_, txtMaxDate_;
    std::optional<Counts> counts_; // none before the first load has come to its end
    QStringList unread_;

    std::optional<LogLoad> load_;
    std::optional<platform::BusyPointer> busy_;
    QTimer nextSlice_;
};

} // namespace events
