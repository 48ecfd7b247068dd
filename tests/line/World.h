#pragma once

#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "database/Database.h"
#include "events/EventLog.h"
#include "line/CompanyDisk.h"
#include "line/Event.h"
#include "line/Ledger.h"
#include "line/LinePort.h"
#include "line/Picture.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "users/Login.h"

#include <QTemporaryDir>
#include <deque>
#include <map>

namespace line {

// The clock of a world; it knows when the program blocks, and whether its state changes meanwhile.
class LineClock : public platform::VirtualClock
{
public:
    void block(double seconds) override
    {
        const int before = state ? state() : 0;
        blocking = true;
        VirtualClock::block(seconds);
        blocking = false;
        if (state && state() != before)
            moved();
    }
    bool blocking = false;
    std::function<int()> state;
    std::function<void()> moved;
};

// Things that come in at a moment told before, whatever the program does then.
class Appointments : public platform::Peer
{
public:
    explicit Appointments(std::function<void(What)> arrive) : arrive_(std::move(arrive)) {}

    void add(qint64 at, What what) { due_.emplace(at, what); }
    void forget() { due_.clear(); }
    QString names() const
    {
        QStringList names;
        for (const auto& [at, what] : due_)
            names << nameOf(Event(what));
        return names.join(QLatin1Char(','));
    }
    std::optional<qint64> nextDue() const override
    {
        return due_.empty() ? std::nullopt : std::optional(due_.begin()->first);
    }
    void advance(qint64 elapsed) override
    {
        while (!due_.empty() && due_.begin()->first <= elapsed) {
            const What what = due_.begin()->second;
            due_.erase(due_.begin());
            arrive_(what);
        }
    }

private:
    std::function<void(What)> arrive_;
    std::multimap<qint64, What> due_;
};

// What the plant of a world has beside the test company, and what is changed in it before a console opens.
extern const QString kWorldPlant;
extern const QString kWorldEdit;
// Where the console opens with an event.
QString keyOf(What opening);

// The program's line on two small companies: bus, console and database as they are, a port in memory, time by
// hand, and an operator who plays on while a box stands. What must hold is looked at between any two events.
class World : private platform::Operator
{
public:
    // What happens next; none ends the play.
    using Source = std::function<std::optional<Event>(World&)>;

    World();
    ~World() override;

    // As behind a start of the program, with the first company open.
    void reset();
    // Plays what the source gives, in a box that stands, too. Stops at the first violation.
    void play(const Source& source);
    void play(const Sequence& sequence);

    // What did not hold; "" when all did.
    const QString& violation() const { return violation_; }
    Picture picture() const;
    int steps() const { return steps_; }

    // Brings the line to rest by at most an answer to each box, Escape, Disconnect and acknowledging, with a
    // dead line and 70 s, and lets an instrument call. Violates when it doesn't answer.
    void recover();

    // Whether an event does anything at this moment.
    bool isPossible(What what) const;
    int boxes() const { return questions_ + failures_; }
    // What the last box said, and what the one in front can be answered with.
    const QString& lastWords() const { return lastWords_; }
    platform::Buttons buttons() const { return stack_.back().buttons; }
    int requestSize() const { return machine_->port.requestSize(); }
    bus::Bus& bus() { return machine_->bus; }
    events::EventLog& log() { return machine_->log; }
    console::ConsoleModel& model() { return machine_->model; }
    // The box of a failure.
    void tell(const platform::Failure& failure);
    bool endedInABox() const { return endedInABox_; }
    // Breaks something on purpose between two events, to see that it is seen.
    std::function<void(World&, Event)> sabotage;
    session::Session session;
    LinePort& port() { return machine_->port; }
    LineClock& clock() { return machine_->clock; }

private:
    // One run of the program.
    struct Machine
    {
        explicit Machine(World& world);

        LineClock clock;
        LinePort port{clock};
        bus::StatusPanels panels;
        console::ConsoleModel model{clock};
        events::EventLog log;
        bus::Bus bus;
        console::Console console;
        Appointments appointments;
    };

    // Operator
    int messageBox(const QString& text, platform::Buttons buttons, platform::Icon icon,
                   const QString& title) override;
    QString openFile(const platform::FileRequest&) override { return {}; }
    platform::ChosenFile saveFile(const platform::FileRequest&) override { return {}; }
    std::optional<QString> inputBox(const QString&, const QString&) override { return {}; }
    void openAddress(const QString&) override {}
    void beep() override {}
    void showForm(const QString&) override {}
    void showFormModal(const QString& name) override;
    void unloadForm(const QString&) override {}
    void unloadAllForms() override {}
    void enableForm(const QString&, bool) override {}
    void repaint() override {}
    void showPointer(platform::Pointer pointer) override
    {
        pointer_ = pointer;
        wasBusy_ = wasBusy_ || pointer == platform::Pointer::Hourglass;
    }

    void prepare();
    void start();
    void shutDown();
    bool connectCompany(int which);
    void setTraps();

    bool next(Event& event);
    void check();
    void violate(const QString& what);
    void perform(Event event);
    void gesture(What what);
    void comesIn(What what);
    QByteArray bytesOf(What what);
    void runToTimer(Timer timer);
    // Plays on while a box stands; what it is answered with.
    int stand(int& boxes, int otherwise, platform::Buttons buttons = platform::Buttons::Ok);
    bool mainWindowIsFree() const { return !consoleOpen_ && boxes() == 0; }

    void follow(const Sequence& sequence);
    void breakDisk(DiskFault fault);
    void openConsole(const QString& key);
    void closeConsole();
    void connectLine();
    void checkEvents(bool rest);
    void checkRecords();
    void readLogs();
    int eventsInTable() const;
    std::map<int, QStringList> tables() const;
    void look(bus::ActionCode code, const QByteArray& bytes);
    void checkAnswer(const char* trouble);
    // 1 or 2.
    QString companyFile(int which) const
    {
        return folder_.filePath(which == 1 ? QStringLiteral("Data/First.mdb")
                                           : QStringLiteral("Data/Second.mdb"));
    }
    QString logFolder() const { return folder_.filePath(QStringLiteral("Log")); }

    QTemporaryDir folder_;
    session::Texts texts_{session.Language};
    structure::Structure structure_{session, texts_, *this};
    database::Database database_{session, texts_, *this, structure_};
    users::Login login_{{session, texts_, *this, {}}};
    platform::FailureHook formerHook_;
    std::optional<Machine> machine_;
    Ledger ledger_;

    const Source* source_ = nullptr;
    bool ended_ = false;
    bool endedInABox_ = false;
    int depth_ = 0;
    QString violation_;
    int steps_ = 0;
    int answer_ = 0;
    bool answered_ = false;
    int questions_ = 0;
    int failures_ = 0;
    struct Box
    {
        bool question;
        platform::Buttons buttons;
    };
    std::vector<Box> stack_;
    QString lastWords_;
    bool consoleOpen_ = false;
    bool vanishing_ = false; // the port is gone, and the program has yet to hear of it
    bool starting_ = false;  // its port opens behind the company, whose failure may stand in a box
    bool loading_ = false;   // it comes up, and can't be touched yet
    QString consoleGroup_;
    int company_ = 0; // 1 or 2; 0 for none
    int raisedFor_ = -1;
    QString raisedForGroup_;
    bool failedSinceRest_ = false;
    bool arrivalsFirst_ = false;
    bool youngestFirst_ = false;
    bool editing_ = false;
    bool valuesChanged_ = false;
    bool secondWasOpen_ = false;
    bool wasBusy_ = false;
    qsizetype doubtsAtRequest_ = 0;
    bool logGone_ = false;
    int serial_ = 0; // of alarms
    platform::Pointer pointer_ = platform::Pointer::Default;
};

} // namespace line
