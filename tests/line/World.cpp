#include "line/World.h"

#include "bus/AlarmReport.h"
#include "line/CompanyDisk.h"
#include "platform/CodePage.h"
#include "platform/OneAtATime.h"
#include "support/CompanyFixture.h"
#include "users/UserTable.h"

#include <QDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <fstream>
#include <sqlite3.h>

namespace line {

using bus::ActionCode;
using platform::Buttons;
namespace answers = platform::answers;

namespace {

const QStringList kCompanies{QString(), QStringLiteral("First.mdb"), QStringLiteral("Second.mdb")};

const QString kLoggedDate = QStringLiteral("dd/MM/yyyy HH:mm:ss");

const QString kForget = QStringLiteral("DELETE FROM tbEvent;");
const QString kFormerValues =
    QStringLiteral("INSERT OR REPLACE INTO tbParametersUser SELECT * FROM tbFormer;");

// As a log file shows it: cut to its width, with a blank for what can't be shown.
QString shown(QString text, int width)
{
    for (QChar& letter : text)
        if (letter < QLatin1Char(' '))
            letter = QLatin1Char(' ');
    return text.left(width).trimmed();
}

QString rowText(const QString& type, const QString& date, const QString& source, const QString& equipment,
                const QString& instrument, const QString& description)
{
    return QStringList{
        type, date, source, shown(equipment, 50), shown(instrument, 50), shown(description, 255)}
        .join(QLatin1Char('|'));
}

QString rowOfLine(const QString& line)
{
    return rowText(line.mid(0, 1), line.mid(1, 19), line.mid(20, 3).trimmed(), line.mid(23, 50),
                   line.mid(73, 50), line.mid(123, 255));
}

QString textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

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

const QString kWorldEdit = QStringLiteral(
    "UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0104', 'P0202', 'P0204', 'P1102');");

QString keyOf(What opening)
{
    switch (opening) {
    case What::OpenGroup:
        return QStringLiteral("1_1");
    case What::OpenInstrument:
        return QStringLiteral("2_1_2");
    case What::OpenParameters:
        return QStringLiteral("3_1_1_G02");
    case What::OpenParameter:
        return QStringLiteral("4_1_1_G01_P0104");
    case What::OpenBitField:
        return QStringLiteral("4_1_1_G02_P0202");
    case What::OpenOtherGroup:
        return QStringLiteral("1_2");
    default:
        return QStringLiteral("1_3");
    }
}

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
    const QString first = folder_.filePath(QStringLiteral("Data/First.mdb"));
    support::makePlant(first);
    support::runSql(first, kWorldPlant);
    QFile::copy(first, folder_.filePath(QStringLiteral("Data/Second.mdb")));
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
        support::runSql(folder_.filePath(QStringLiteral("Data/Second.mdb")), kForget + kFormerValues);
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

// At each thing that leaves.
void World::look(ActionCode code, const QByteArray& bytes)
{
    if (machine_->clock.blocking)
        violate("something is sent inside a wait");
    const bool merging = code == ActionCode::MergingRam || code == ActionCode::MergingEeprom;
    if (merging && bytes.size() > 6)
        checkAnswer("a bit field is merged from");
    doubtsAtRequest_ = machine_->model.doubts().size();
    // The first block is answered: what it said must not be lost any more.
    if (code == ActionCode::SecondBlock) {
        const QString text = platform::decode(machine_->port.held(), session.CodePage);
        for (const bus::AlarmRow& alarm : bus::parseAlarmBlock(text, bus::AlarmBlock::First).rows) {
            const QString row = rowText("2", machine_->clock.now().toString(kLoggedDate), "1",
                                        alarm.equipment, alarm.instrument, alarm.description);
            if (!ledger_.isOpen(row))
                violate("an alarm is answered that nobody recorded: " + row);
        }
    }
}

// What is made of an answer comes from bytes that came behind its request, or the operator is told.
void World::checkAnswer(const char* trouble)
{
    const LinePort& port = machine_->port;
    if (!port.isOwnAnswer(port.requestSize()) && machine_->model.doubts().size() <= doubtsAtRequest_)
        violate(QLatin1String(trouble) +
                QStringLiteral(" bytes that came before the request, and nobody is told"));
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
    session.DbName = kCompanies[which];
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

// The engine itself tells of each value that is stored.
void World::setTraps()
{
    sqlite3* engine = session.cnDatabase.database().getHandle();
    const auto onValue = [](sqlite3_context* context, int, sqlite3_value** values) {
        auto& world = *static_cast<World*>(sqlite3_user_data(context));
        world.valuesChanged_ = true;
        if (world.editing_)
            return;
        const QString group = textOf(values[0]);
        if (world.company_ != world.raisedFor_ || group != world.raisedForGroup_)
            world.violate("a value is stored in another company or group than the line was raised for");
        world.checkAnswer("a value is stored from");
    };
    sqlite3_create_function(engine, "lineValue", 4, SQLITE_UTF8, this, onValue, nullptr, nullptr);
    session.cnDatabase.Execute(QStringLiteral(R"(
        CREATE TEMP TRIGGER lineValues AFTER UPDATE OF Value ON main.tbParametersUser BEGIN
            SELECT lineValue(NEW.IDGrp, NEW.IDInst, NEW.IDPar, NEW.Value);
        END;)"));
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

void World::check()
{
    readLogs();
    const Picture now = picture();
    if (starting_)
        return;
    if (const QString trouble = disagreement(now); !trouble.isEmpty())
        violate(trouble);
    const bool rest = now.status <= session::kLineIdle;
    checkEvents(rest);
    if (rest)
        checkRecords();
    if (rest && boxes() == 0 && CompanyDisk::fault() == DiskFault::None && !logGone_)
        failedSinceRest_ = false;
}

void World::checkEvents(bool rest)
{
    if (company_ == 0 || CompanyDisk::fault() == DiskFault::Locked || ledger_.disturbed)
        return;
    const int rows = eventsInTable();
    const QStringList open = ledger_.open(company_);
    if (rows != open.size())
        violate(QStringLiteral("the table has %1 events, and %2 were recorded that no log file has")
                    .arg(rows)
                    .arg(open.size()));
    if (rest && failures_ == 0 && !failedSinceRest_ && !open.isEmpty())
        violate("the line is at rest, and an event is in no log file: " + open.first());
}

// At rest nothing is left open in the company.
void World::checkRecords()
{
    if (company_ == 0)
        return;
    sqlite3* engine = session.cnDatabase.database().getHandle();
    for (sqlite3_stmt* statement = sqlite3_next_stmt(engine, nullptr); statement;
         statement = sqlite3_next_stmt(engine, statement))
        if (sqlite3_stmt_busy(statement))
            violate(QStringLiteral("at rest a statement is open: ") + sqlite3_sql(statement));
}

int World::eventsInTable() const
{
    SQLite::Statement count(session.cnDatabase.database(), "SELECT Count(*) FROM tbEvent");
    count.executeStep();
    return count.getColumn(0).getInt();
}

// What the tables of both companies hold, whatever stands in the program's way.
std::map<int, QStringList> World::tables() const
{
    std::map<int, QStringList> tables;
    const DiskFault fault = CompanyDisk::fault();
    CompanyDisk::set(DiskFault::None);
    for (const int company : {1, 2}) {
        SQLite::Database file(folder_.filePath("Data/" + kCompanies[company]).toStdString(),
                              SQLite::OPEN_READONLY);
        SQLite::Statement events(file, "SELECT * FROM tbEvent");
        while (events.executeStep()) {
            const auto text = [&events](int column) {
                return QString::fromStdString(events.getColumn(column).getString());
            };
            const QString stored = text(1);
            const QString date =
                stored.mid(8, 2) + '/' + stored.mid(5, 2) + '/' + stored.left(4) + stored.mid(10);
            tables[company] << rowText(text(0), date, text(2), text(3), text(4), text(5));
        }
    }
    CompanyDisk::set(fault);
    return tables;
}

void World::readLogs()
{
    // A log file is written under the hourglass.
    if (logGone_ || !std::exchange(wasBusy_, false))
        return;
    for (const auto& entry : std::filesystem::directory_iterator(logFolder().toStdString())) {
        if (entry.path().extension() != ".log")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            if (const QString trouble = ledger_.logged(
                    rowOfLine(platform::decode(QByteArray::fromStdString(line), session.CodePage)));
                !trouble.isEmpty())
                violate(trouble);
        std::filesystem::remove(entry.path());
    }
}

Picture World::picture() const
{
    const Machine& machine = *machine_;
    Picture picture;
    picture.status = session.COMPort.Status;
    picture.code = machine.bus.actionCode();
    const auto due = machine.clock.timersDue();
    for (int timer = 0; timer < kTimers; ++timer)
        if (due[std::size_t(timer)])
            picture.dueIn[std::size_t(timer)] = *due[std::size_t(timer)] - machine.clock.elapsed();
    picture.portOpen = machine.port.PortOpen() || (vanishing_ && picture.status != session::kPortClosed);
    picture.comSet = machine.panels.picture(bus::Panel::COMSet);
    picture.allarm = machine.panels.picture(bus::Panel::Allarm);
    picture.info = machine.panels.text(bus::Panel::Info);
    picture.consoleOpen = consoleOpen_;
    picture.consoleStatus = machine.model.status();
    picture.commands = machine.model.commands();
    picture.progressVisible = machine.model.progressVisible();
    picture.simulator = machine.model.simulatorPressed();
    picture.autoDisconnect = machine.model.autoDisconnectPressed();
    picture.parTrasm = const_cast<bus::Bus&>(machine.bus).parTrasm();
    picture.operating = machine.bus.isOperating();
    picture.companyOpen = company_ != 0;
    picture.transaction = picture.companyOpen && session.cnDatabase.inTransaction();
    picture.company = company_;
    picture.raisedFor = raisedFor_;
    picture.raisedForGroup = raisedForGroup_;
    picture.pointer = pointer_;
    picture.received = machine.bus.received();
    picture.failureBoxes = failures_;
    picture.questions = questions_;
    picture.failedSinceRest = failedSinceRest_;
    picture.pending = machine.appointments.names() + QLatin1Char(' ') +
                      QString::number(int(CompanyDisk::fault())) + QLatin1Char(logGone_ ? 'l' : '-') +
                      QLatin1Char(machine.port.failNext ? 'w' : '-') +
                      QLatin1Char(arrivalsFirst_ ? 'a' : 't') + QLatin1Char(youngestFirst_ ? 'y' : 'o');
    return picture;
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

// Events
// ------------------------------------------------------------------------------------------------

bool World::isPossible(What what) const
{
    using enum What;
    const console::ConsoleStates& commands = machine_->model.commands();
    const bool atConsole = consoleOpen_ && boxes() == 0;
    const session::LineStatus status = session.COMPort.Status;
    if (what >= OpenGroup && what <= OpenEmptyGroup)
        return mainWindowIsFree() && company_ != 0 &&
               (status == session::kLineIdle || status == session::kConnected);
    const auto due = [&](Timer timer) { return machine_->clock.timersDue()[std::size_t(timer)].has_value(); };
    switch (what) {
    case CloseConsole:
        return atConsole && machine_->console.mayClose();
    case Simulator:
        return atConsole && commands.Simulator;
    case AutoDisconnect:
        return atConsole && commands.AutoDisconnect;
    case Connect:
    case Disconnect:
        // A click waits until the window has settled, and may find another state then, or a box.
        return consoleOpen_ && !loading_ && boxes() < 3;
    case Read:
        return atConsole && commands.Read;
    case Write:
        return atConsole && commands.Write;
    case Escape:
        return atConsole;
    case Yes:
    case No:
    case Cancel:
        return !stack_.empty() && stack_.back().question;
    case Ok:
        return !stack_.empty();
    case Acknowledge:
    case Leave:
        return mainWindowIsFree();
    case CloseCompany:
        return mainWindowIsFree() && company_ != 0;
    case OpenCompany:
    case OpenOtherCompany:
        return mainWindowIsFree() && company_ == 0;
    case Settings:
        return mainWindowIsFree() && status <= session::kLineIdle;
    case Answer:
    case AnswerByte:
    case TwoAnswers:
    case ShortAnswer:
    case Garbled:
        return machine_->port.PortOpen() && machine_->port.requestSize() > 0;
    case LateAnswer:
        return machine_->port.PortOpen() && machine_->port.formerSize() > 0;
    case DueAction:
        return due(kAction);
    case DueTimeOut:
        return due(kTimeOut);
    case DueConnection:
        return due(kConnection);
    case DuePolling:
        return due(kPolling);
    case DueAlarm:
        return due(kAlarm);
    default:
        return !isArrival(what) || machine_->port.PortOpen();
    }
}

void World::perform(Event event)
{
    if (sabotage)
        sabotage(*this, event);
    if (!isPossible(event.what))
        return;
    if (isArrival(event.what))
        return event.when == When::Now ? comesIn(event.what) : [&] {
            qint64 at = machine_->clock.elapsed() + 1500;
            if (event.when == When::WithTimer) {
                const auto due = machine_->clock.timersDue();
                std::optional<qint64> first;
                for (const Timer timer : {kAction, kTimeOut, kPolling, kAlarm})
                    if (due[timer] && (!first || *due[timer] < *first))
                        first = due[timer];
                at = first.value_or(at);
            }
            machine_->appointments.add(at, event.what);
        }();
    gesture(event.what);
}

void World::comesIn(What what)
{
    machine_->port.comes(bytesOf(what));
    machine_->clock.settle();
}

QByteArray World::bytesOf(What what)
{
    using enum What;
    const LinePort& port = machine_->port;
    const char digit = char('0' + port.requests() % 10);
    const auto alarm = [this] { return QByteArray("A") + QByteArray::number(++serial_); };
    switch (what) {
    case Answer:
        return QByteArray(port.requestSize() + 1, digit);
    case AnswerByte:
        return QByteArray(1, digit);
    case TwoAnswers:
        return QByteArray(2 * (port.requestSize() + 1), digit);
    case ShortAnswer:
        return QByteArray(port.requestSize(), digit);
    case LateAnswer:
        return QByteArray(port.formerSize() + 1, '7');
    case Garbled:
        return QByteArray(port.requestSize() + 1, char(0xFA));
    case Noise:
        return QByteArray("\x80\x00~", 3);
    case Return:
        return "\r";
    case SaysOk:
        return "\r\nOK\r\n";
    case SaysConnect:
        return "CONNECT 2400\r\n";
    case SaysAta:
        return "ATA\r";
    case SaysRing:
        return "RING";
    case RingInNoise:
        return QByteArray("\x00\xFFRRINGO", 8);
    case SaysAtd:
        return "ATD5551\r";
    case FirstBlock:
        return "<Plant><Unit><" + alarm() + ">";
    case HalfBlock:
        return "<Plant><Un";
    case OtherHalf:
        return "it><" + alarm() + ">";
    case BlockTwice: {
        const QByteArray block = "<Plant><Unit><" + alarm() + ">";
        return block + block;
    }
    case BlockWithout:
        return "Plant Unit " + alarm();
    case EndBlock:
        return "<Plant><End " + alarm() + ">";
    default:
        return {};
    }
}

void World::runToTimer(Timer timer)
{
    const qint64 due = *machine_->clock.timersDue()[std::size_t(timer)];
    machine_->clock.run(std::max<qint64>(0, due - machine_->clock.elapsed()));
}

void World::gesture(What what)
{
    using enum What;
    Machine& machine = *machine_;
    console::Console& console = machine.console;
    switch (what) {
    case OpenGroup:
    case OpenInstrument:
    case OpenParameters:
    case OpenParameter:
    case OpenBitField:
    case OpenOtherGroup:
    case OpenEmptyGroup:
        return openConsole(keyOf(what));
    case CloseConsole:
        return closeConsole();
    case Simulator:
        return console.Set_Simulator(true);
    case AutoDisconnect:
        return console.Set_AutoDisconnect();
    case Connect:
        return connectLine();
    case Disconnect:
        return console.Disconnect();
    case Read:
        machine.port.forgetRequest();
        return console.Read_Param();
    case Write:
        machine.port.forgetRequest();
        return console.Write_Param();
    case Escape:
        return console.interrupt();
    case Yes:
        answer_ = answers::kYes;
        answered_ = true;
        return;
    case No:
        answer_ = answers::kNo;
        answered_ = true;
        return;
    case Cancel:
        answer_ = answers::kCancel;
        answered_ = true;
        return;
    case Ok:
        answer_ = answers::kOk;
        answered_ = true;
        return;
    case Acknowledge:
        return machine.bus.Delete_Allarms();
    case CloseCompany:
        if (stand(questions_, answers::kNo) == answers::kYes) {
            ledger_.disturbed = true;
            database_.Disconnect_Database();
            company_ = 0;
        }
        return;
    case OpenCompany:
    case OpenOtherCompany:
        if (stand(questions_, answers::kCancel) == answers::kOk)
            connectCompany(what == OpenCompany ? 1 : 2);
        return;
    case Settings:
        machine.bus.Close_COMConnection();
        stand(questions_, answers::kCancel);
        if (!ended_)
            machine.bus.Open_COMConnection();
        return;
    case Leave:
        if (stand(questions_, answers::kNo) == answers::kYes) {
            shutDown();
            check();
            if (ledger_.disturbed)
                for (const QString& row : ledger_.ended(tables()))
                    if (!logGone_)
                        violate("the program ends, and an event is nowhere: " + row);
            starting_ = true;
            start();
            starting_ = false;
        }
        return;
    case Vanish:
        // The program hears of it when its turn comes; a beep may be first, and take its time.
        vanishing_ = machine.port.PortOpen();
        machine.port.gone();
        while (session.COMPort.Status != session::kPortClosed && !machine.port.PortOpen() && !ended_)
            machine.clock.settle();
        // A box may stand in front of that at the end of a play.
        vanishing_ = !machine.port.PortOpen();
        return;
    case WriteFails:
        machine.port.failNext = true;
        return;
    case DueAction:
        return runToTimer(kAction);
    case DueTimeOut:
        return runToTimer(kTimeOut);
    case DueConnection:
        return runToTimer(kConnection);
    case DuePolling:
        return runToTimer(kPolling);
    case DueAlarm:
        return runToTimer(kAlarm);
    case Second:
        return machine.clock.run(1000);
    case Midnight:
        return machine.clock.setNow(QDateTime(machine.clock.now().date(), QTime(23, 59, 58)));
    case Silence:
        return machine.clock.run(70000);
    case ArrivalsFirst:
    case TimersFirst:
        arrivalsFirst_ = what == ArrivalsFirst;
        return machine.clock.setOrder(arrivalsFirst_ ? platform::VirtualClock::Order::EventsFirst
                                                     : platform::VirtualClock::Order::TimersFirst);
    case YoungestFirst:
    case OldestFirst:
        youngestFirst_ = what == YoungestFirst;
        return machine.clock.setYoungestFirst(youngestFirst_);
    case Locked:
        return breakDisk(DiskFault::Locked);
    case ReadOnly:
        return breakDisk(DiskFault::ReadOnly);
    case Full:
        return breakDisk(DiskFault::Full);
    case LogGone:
        if (!logGone_)
            QDir(logFolder()).removeRecursively();
        ledger_.disturbed = true;
        logGone_ = true;
        return;
    case Healed:
        CompanyDisk::set(DiskFault::None);
        if (logGone_)
            QDir(folder_.path()).mkpath(QStringLiteral("Log"));
        logGone_ = false;
        return;
    default:
        return;
    }
}

// What the company doesn't take waits outside of it.
void World::breakDisk(DiskFault fault)
{
    CompanyDisk::set(fault);
    ledger_.disturbed = true;
}

void World::openConsole(const QString& key)
{
    if (CompanyDisk::fault() == DiskFault::None) {
        editing_ = true;
        session.cnDatabase.Execute(kWorldEdit);
        editing_ = false;
    }
    consoleOpen_ = true;
    consoleGroup_ = structure::Extract_Key(key).IDGrp;
    const QStringList before = ledger_.disturbed ? tables()[company_] : QStringList();
    const int company = company_;
    loading_ = true;
    machine_->console.load(key);
    loading_ = false;
    if (!before.isEmpty() && !ended_)
        for (const QString& row : ledger_.emptied(company, before, tables()[company]))
            violate("a console that opens throws an event away that is in no log file: " + row);
}

void World::closeConsole()
{
    if (!std::exchange(consoleOpen_, false))
        return;
    machine_->console.unload();
}

void World::connectLine()
{
    // A port that vanished is tried again.
    if (session.COMPort.Status == session::kLineIdle || session.COMPort.Status == session::kPortClosed) {
        raisedFor_ = company_;
        raisedForGroup_ = consoleGroup_;
    }
    machine_->console.Connect();
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
