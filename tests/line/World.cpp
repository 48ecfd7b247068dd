#include "line/World.h"

#include "line/CompanyDisk.h"
#include "line/EventRow.h"
#include "platform/OneAtATime.h"
#include "support/CompanyFixture.h"
#include "users/UserTable.h"

#include <QDir>
#include <filesystem>

namespace line {

using bus::ActionCode;
using platform::Buttons;
namespace answers = platform::answers;

namespace {

const QString kForget = QStringLiteral("DELETE FROM tbEvent;");
const QString kFormerValues =
    QStringLiteral("INSERT OR REPLACE INTO tbParametersUser SELECT * FROM tbFormer;");

// Where no disk is waited for, if there is such a place.
QString fastFolder()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
           QStringLiteral("/calidora-line-XXXXXX");
}

} // namespace

// A second group that can be reached, something to write in each of them, and a copy of the values to come
// back to.
const QString kWorldPlant = QStringLiteral(R"(
    UPDATE tbInstrumentsUser SET Address = '00' WHERE IDGrp = 2;
    UPDATE tbParametersUser SET State = 0;
    CREATE TABLE tbFormer AS SELECT * FROM tbParametersUser;)");

World::Machine::Machine(World& world)
    : log(world.session, world, clock),
      bus({world.session, world.texts_, port, clock, world, log, panels, model}),
      console({world.session, world.texts_, world, clock, world.structure_, log, bus, model}),
      appointments([&world](What what) { world.port().comes(world.bytesOf(what)); })
{
    clock.addPeer(appointments);
    // As its window does whenever it shows the commands.
    QObject::connect(&model, &console::ConsoleModel::changed, &model, [this, &world] {
        if (world.consoleOpen_)
            console.keepSimulator();
    });
}

World::World() : folder_(fastFolder())
{
    CompanyDisk::install();
    formerHook_ = platform::setFailureHook(platform::oneAtATime([this](const platform::Failure& failure) {
        failedSinceRest_ = true;
        if (!failure.silent)
            tell(failure);
    }));
    prepare();
}

World::~World()
{
    CompanyDisk::set(DiskFault::None);
    machine_.reset();
    platform::setFailureHook(formerHook_);
}

void World::prepare()
{
    for (const char* below : {"Data", "Log"})
        QDir(folder_.path()).mkpath(QLatin1String(below));
    session.AppPath = folder_.path();
    session.DbPath = folder_.filePath(QStringLiteral("Data"));
    session.Language = session::LanguageSettings::fromIdentifier(QStringLiteral("EN_English_2000"));
    const QString first = companyFile(1);
    support::makePlant(first);
    support::runSql(first, kWorldPlant);
    QFile::copy(first, companyFile(2));
    QObject::connect(&database_, &database::Database::aboutToDisconnect, [this] { machine_->bus.cutLine(); });
}

void World::reset()
{
    ended_ = true; // nobody plays while the house is put in order
    CompanyDisk::set(DiskFault::None);
    if (logGone_)
        QDir(folder_.path()).mkpath(QStringLiteral("Log"));
    logGone_ = false;
    if (machine_ && company_ == 2)
        shutDown();
    machine_.reset();
    if (std::exchange(secondWasOpen_, false))
        support::runSql(companyFile(2), kForget + kFormerValues);
    for (const auto& entry : std::filesystem::directory_iterator(logFolder().toStdString()))
        std::filesystem::remove(entry.path());
    stack_.clear();
    depth_ = questions_ = failures_ = 0;
    violation_.clear();
    consoleOpen_ = endedInABox_ = vanishing_ = starting_ = false;
    consoleGroup_.clear();
    raisedFor_ = -1;
    raisedForGroup_.clear();
    serial_ = 0;
    arrivalsFirst_ = youngestFirst_ = false;
    ledger_.clear();
    start();
    editing_ = true;
    session.cnDatabase.Execute(kForget);
    if (std::exchange(valuesChanged_, false))
        session.cnDatabase.Execute(kFormerValues);
    editing_ = false;
    ledger_.clear();
    failedSinceRest_ = false;
    ended_ = false;
}

// What the start of the program does with the line.
void World::start()
{
    session.COMPort.Status = session::kLineIdle;
    pointer_ = platform::Pointer::Default;
    setPointer(platform::Pointer::Default);
    machine_.emplace(*this);
    LinePort& port = machine_->port;
    port.code = [this] { return machine_->bus.actionCode(); };
    port.received = [this] { return machine_->bus.received(); };
    port.aliveFrame = [this] { return machine_->bus.parTrasm().AliveFrame; };
    port.violate = [this](const QString& what) { violate(what); };
    port.onSent = [this](ActionCode code, const QByteArray& bytes) { look(code, bytes); };
    machine_->log.onEvent = [this](int type, const QDateTime& when, int source, const QString& equipment,
                                   const QString& instrument, const QString& description) {
        ledger_.recorded(company_, rowText(QString::number(type), when.toString(kLoggedDate),
                                           QString::number(source), equipment, instrument, description));
    };
    machine_->bus.setOnChecked([this](const values::CheckedValue&) { checkAnswer("a write is judged by"); });
    // What the machine doesn't do while the program blocks, the program doesn't begin.
    machine_->clock.state = [this] { return machine_->bus.changes(); };
    machine_->clock.moved = [this] { violate("something begins inside a wait"); };
    if (company_ == 0)
        connectCompany(1);
    machine_->bus.Set_COMPort();
    machine_->bus.Open_COMConnection();
}

void World::shutDown()
{
    closeConsole();
    database_.Disconnect_Database();
    company_ = 0;
    machine_->bus.Close_COMConnection();
}

bool World::connectCompany(int which)
{
    session.DbName = QFileInfo(companyFile(which)).fileName();
    if (!database_.Connect_Database(session.dbFile())) {
        database_.Disconnect_Database();
        session.DbName.clear();
        company_ = 0;
        return false;
    }
    users::requery(session);
    login_.SearchUser(support::kTechnician, {});
    company_ = which;
    secondWasOpen_ = secondWasOpen_ || which == 2;
    setTraps();
    return true;
}

// Playing
// ------------------------------------------------------------------------------------------------

void World::play(const Source& source)
{
    source_ = &source;
    ended_ = false;
    Event event;
    while (next(event))
        perform(event);
    source_ = nullptr;
    ended_ = true;
}

void World::play(const Sequence& sequence)
{
    std::size_t at = 0;
    play(Source([&](World&) -> std::optional<Event> {
        if (at == sequence.size())
            return std::nullopt;
        return sequence[at++];
    }));
}

bool World::next(Event& event)
{
    if (ended_)
        return false;
    check();
    std::optional<Event> wanted;
    if (violation_.isEmpty() && source_)
        wanted = (*source_)(*this);
    if (!wanted) {
        ended_ = true;
        endedInABox_ = boxes() > 0;
        return false;
    }
    ++steps_;
    event = *wanted;
    return true;
}

void World::violate(const QString& what)
{
    if (violation_.isEmpty() && !ended_)
        violation_ = what;
}

// Boxes
// ------------------------------------------------------------------------------------------------

int World::stand(int& boxes, int otherwise, Buttons buttons)
{
    if (ended_)
        return otherwise;
    if (machine_->clock.blocking)
        violate("a box comes up inside a wait");
    ++boxes;
    stack_.push_back({&boxes == &questions_, buttons});
    int answer = otherwise;
    Event event;
    while (next(event)) {
        perform(event);
        if (std::exchange(answered_, false)) {
            answer = answer_;
            break;
        }
    }
    if (!stack_.empty())
        stack_.pop_back();
    boxes = std::max(0, boxes - 1);
    return answer;
}

void World::tell(const platform::Failure& failure)
{
    lastWords_ = failure.procedure + QStringLiteral(": ") + failure.description;
    stand(failures_, answers::kOk);
}

int World::messageBox(const QString& text, Buttons buttons, platform::Icon, const QString&)
{
    const int otherwise = buttons == Buttons::Ok      ? answers::kOk
                          : buttons == Buttons::YesNo ? answers::kNo
                                                      : answers::kCancel;
    lastWords_ = text;
    return stand(questions_, otherwise, buttons);
}

void World::showFormModal(const QString&)
{
    stand(questions_, answers::kOk);
}

// At rest again
// ------------------------------------------------------------------------------------------------

void World::recover()
{
    using enum What;
    if (!violation_.isEmpty())
        return;
    machine_->port.failNext = false;
    machine_->appointments.forget();
    follow({Healed});
    if (consoleOpen_ && session.COMPort.Status > session::kLineIdle)
        follow({Escape});
    if (!consoleOpen_ && session.COMPort.Status == session::kConnected)
        follow({OpenGroup, Escape});
    follow({Silence, CloseConsole});
    if (session.COMPort.Status == session::kPortClosed)
        follow({Settings});
    follow({Acknowledge, Second});
    if (!violation_.isEmpty())
        return;
    ended_ = false;
    if (session.COMPort.Status != session::kLineIdle)
        return violate(QStringLiteral("70 s and Escape don't bring the line to rest: status %1, %2")
                           .arg(session.COMPort.Status)
                           .arg(nameOf(machine_->bus.actionCode())));
    play(Sequence{SaysRing});
    ended_ = false;
    // What dialled as a link was being closed may stand in front of it: then the call is answered at once.
    const ActionCode code = machine_->bus.actionCode();
    if (violation_.isEmpty() && code != ActionCode::CallWaiting && code != ActionCode::FirstBlock)
        violate("a line at rest doesn't answer a call: " + nameOf(machine_->bus.actionCode()));
    follow({DueAction, SaysConnect, FirstBlock, DueAction, EndBlock, DueAction});
    ended_ = false;
    if (violation_.isEmpty() && session.COMPort.Status != session::kLineIdle)
        violate("a call doesn't come to its end: " + nameOf(machine_->bus.actionCode()));
    // With nothing in the way any more all that waited has gone out with the call.
    for (const QString& row : ledger_.open(company_))
        violate("an event is in no log file: " + row);
}

// Plays these, and answers each box on the way: a question with No, all else with its only button.
void World::follow(const Sequence& sequence)
{
    std::size_t at = 0;
    play(Source([&](World&) -> std::optional<Event> {
        if (!stack_.empty())
            return sequence[at - 1].what == What::Escape && stack_.back().question ? What::No : What::Ok;
        if (at == sequence.size())
            return std::nullopt;
        return sequence[at++];
    }));
}

} // namespace line
