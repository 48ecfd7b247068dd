#include "line/CompanyDisk.h"
#include "line/World.h"
#include "structure/NodeKey.h"

#include <QDir>

// What can happen on the line, and what each of it does.
namespace line {

namespace answers = platform::answers;

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

} // namespace line
