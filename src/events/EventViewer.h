#pragma once

#include "events/EventFilter.h"
#include "events/EventModel.h"
#include "events/LogLoad.h"
#include "platform/Forward.h"
#include "platform/Operator.h"
#include "session/Forward.h"

#include <QTimer>
#include <functional>
#include <optional>

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
        const platform::Clock& clock;
        session::Printing& printing;
    };

    explicit EventViewer(const Surroundings& surroundings);

    // The window comes: no filter, no bounds but now.
    void load();
    // The window goes: a load ends at once, and the events' memory is free.
    void unload();

    // Begins to read all files; a load under way is given up. What a short load reads stands in the list on
    // return. True unless the load has failed.
    bool Read_Log();
    bool isLoading() const { return load_.has_value(); }
    // Of a load or an export under way; none without one.
    std::optional<int> progress() const;

    void Check_List();
    void UnCheck_List();
    void Filter_Events();
    void All_Events();
    // Writes the checked rows to a file.
    void Export_List();
    // Prints them on the printer that the operator chooses.
    void Print_List();

    // Shows one event whole, and asks for its place in the plant.
    void Show_Event(int row);
    const QStringList& shownEvent() const { return shownEvent_; } // its cells
    int shownType() const { return shownType_; }
    // Where the plant was led to; "" when the plant has neither equipment nor instrument of that name.
    void setPlace(const QString& path) { place_ = path; }
    const QString& place() const { return place_; }
    // The operator goes on in the plant.
    void leave() { emit leaveWanted(); }

    EventModel& list() { return list_; }
    EventFilter& filter() { return filter_; }
    bool isFiltered() const { return isTrue(filter_.Active); }

    // The dates of the oldest and the newest event found.
    const QDateTime& txtMinDate() const { return txtMinDate_; }
    const QDateTime& txtMaxDate() const { return txtMaxDate_; }

    // The status bar's panel "Info".
    const QString& info() const { return info_; }
    // What stands beside it: what the list is busy with, how many events it shows when it is narrowed.
    QString narrowed() const;
    // Which files couldn't be read, and the same with every reason; "" when all could.
    QString unread() const;
    QString unreadReasons() const { return unread_.join(QLatin1Char('\n')); }

    // Pulls the list's words in, in the current language. Fails where it has none.
    void relabel();

    // As the operator has made them, for the next time; 0 before.
    std::array<int, kEventColumns> columnWidths{};

signals:
    // A load has begun, gone on or ended; the filter has changed; an export has gone on.
    void changed();
    // The plant shows this equipment or instrument, when it has one, and tells so by setPlace.
    void placeWanted(const QString& equipment, const QString& instrument);
    void leaveWanted();

private:
    class ExportShown;
    struct Counts
    {
        bool filtered = false;
        qint64 shown = 0;
        qint64 total = 0;
    };

    bool readOn(const std::function<void()>& begin);
    void readSlice();
    void endLoad();
    void keepResult();
    void setAllChecked(bool checked);
    void composeInfo();
    bool somethingChecked();
    std::optional<platform::ChosenFile> askFile();
    void writeFile(const platform::ChosenFile& file);
    void showExported(const std::optional<int>& percent);

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    const platform::Clock& clock_;
    session::Printing& printing_;
    EventModel list_;
    EventFilter filter_;
    QDateTime txtMinDate_, txtMaxDate_;
    std::optional<Counts> counts_; // none before the first load has come to its end
    QString info_;
    QStringList unread_;
    QStringList shownEvent_;
    int shownType_ = 0;
    QString place_;

    std::optional<LogLoad> load_;
    std::optional<platform::BusyPointer> busy_;
    QTimer nextSlice_;
    std::optional<int> exported_; // percent
};

} // namespace events
