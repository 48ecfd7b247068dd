#include "bus/AlarmReport.h"
#include "line/CompanyDisk.h"
#include "line/EventRow.h"
#include "line/World.h"
#include "platform/CodePage.h"

#include <QDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <fstream>
#include <sqlite3.h>

// What must hold, looked at between any two events and by the engine and the port themselves.
namespace line {

using bus::ActionCode;

namespace {

QString textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

} // namespace

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
        SQLite::Database file(companyFile(company).toStdString(), SQLite::OPEN_READONLY);
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

} // namespace line
