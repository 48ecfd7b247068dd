#include "line/Picture.h"

#include "bus/StatusPanels.h"

#include <vector>

namespace line {

using bus::ActionCode;
namespace images = bus::images;

namespace {

const QString kCallComing = QStringLiteral("Incaming allarms...");
const QString kAlarmsReceived = QStringLiteral("Attention! Allarms recivied.");
const QString kConnectedFor = QStringLiteral("CONNECTED ");

enum class Must
{
    No,
    May,
    Yes
};

// What belongs together. In each code: the status; whether tmrAction, tmrTimeOut, tmrConnection, tmrPolling
// run; whether an operation has its records open; whether ParTrasm names a connection.
struct Row
{
    ActionCode code;
    session::LineStatus status;
    Must action, timeOut, clock, polling;
    bool operating;
    Must connection;
    std::vector<int> comSet;
};

// Two rows of a code are two ways to be in it. What a cut leaves armed is on purpose: the last poll, the
// time-out of the attempt, a tick that finds nothing to do.
const std::vector<Row>& rows()
{
    using enum ActionCode;
    using enum Must;
    constexpr auto kBusy = session::kBusy;
    // clang-format off
    static const std::vector<Row> kRows{
        // code             status                  action timeOut clock polling operating connection COMSet
        {Idle,             session::kPortClosed,   No,    No,     No,   No,     false,    May,       {26}},
        {Idle,             session::kLineIdle,     May,   May,    No,   May,    false,    No,        {25}},
        {Idle,             session::kConnected,    May,   May,    May,  Yes,    false,    Yes,       {25, 27}},
        {Polling,          session::kLineIdle,     May,   May,    No,   No,     false,    No,        {25}},
        {Polling,          session::kConnected,    May,   May,    May,  May,    false,    Yes,       {25, 27}},
        {SimulatorRaising, kBusy,                  May,   May,    No,   No,     false,    Yes,       {27}},
        {SimulatorClosing, kBusy,                  May,   May,    May,  No,     false,    Yes,       {25}},
        {Reading,          kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {WritingRam,       kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {WritingEeprom,    kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {Checking,         kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {MergingRam,       kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {MergingEeprom,    kBusy,                  May,   May,    May,  No,     true,     Yes,       {25, 27}},
        {ModemSetup,       kBusy,                  May,   May,    No,   No,     false,    Yes,       {27}},
        {Dialling,         kBusy,                  No,    May,    No,   No,     false,    Yes,       {27}},
        {HangingUp,        kBusy,                  May,   May,    May,  No,     false,    Yes,       {25}},
        {CallWaiting,      kBusy,                  Yes,   No,     No,   No,     false,    No,        {27}},
        {CallAnswering,    kBusy,                  No,    Yes,    No,   No,     false,    No,        {27}},
        {FirstBlock,       kBusy,                  Yes,   No,     No,   No,     false,    No,        {27}},
        {SecondBlock,      kBusy,                  Yes,   No,     No,   No,     false,    No,        {27}},
    };
    // clang-format on
    return kRows;
}

bool isCall(ActionCode code)
{
    return code >= ActionCode::CallWaiting;
}

bool fits(Must must, bool is)
{
    return must == Must::May || (must == Must::Yes) == is;
}

QString timerTrouble(const Row& row, const Picture& picture)
{
    // What failed in a tick or an arrival may have left its timer stopped: the pass stands still, Escape
    // frees it.
    const std::pair<Must, Timer> timers[] = {
        {row.action, kAction}, {row.timeOut, kTimeOut}, {row.clock, kConnection}, {row.polling, kPolling}};
    static const QStringList kNames{"tmrAction", "tmrTimeOut", "tmrConnection", "tmrPolling"};
    for (const auto& [must, timer] : timers)
        if (!fits(must, picture.dueIn[timer].has_value()))
            return kNames[timer] + (picture.dueIn[timer] ? " runs" : " doesn't run");
    if (picture.dueIn[kAlarm].has_value() != (picture.allarm == images::kAlarm))
        return "tmrAllarm and the panel of the alarms don't agree";
    return {};
}

QString infoTrouble(const Picture& picture)
{
    const QString& info = picture.info;
    if (isCall(picture.code))
        return info == kCallComing || info.isEmpty() ? QString() : "panel Info of a call says " + info;
    if (picture.status <= session::kLineIdle)
        return info.isEmpty() || (info == kAlarmsReceived && picture.allarm == images::kAlarm)
                   ? QString()
                   : "panel Info of an idle line says " + info;
    return info.isEmpty() || info.startsWith(kConnectedFor) ||
                   (info == kAlarmsReceived && picture.allarm == images::kAlarm)
               ? QString()
               : "panel Info of a connection says " + info;
}

QString consoleTrouble(const Picture& picture)
{
    const session::LineStatus status = picture.status;
    const bool quietCall = isCall(picture.code) && picture.consoleStatus != session::kBusy;
    if (status >= session::kLineIdle && !quietCall && picture.consoleStatus != status)
        return "the console stands on another status";
    const console::ConsoleStates& now = picture.commands;
    if ((status == session::kLineIdle || status == session::kConnected) && now != statesFor(status, now))
        return "the console's commands are not those of the status";
    if (status == session::kBusy && !quietCall && now != statesFor(status, now))
        return "the console has commands while the line is busy";
    if (picture.progressVisible && !picture.operating)
        return "a progress bar with no operation";
    const bool waits = picture.pointer == platform::Pointer::ArrowHourglass;
    if (status != session::kBusy && waits)
        return "the pointer waits";
    if (status == session::kBusy && !isCall(picture.code) && !waits)
        return "the pointer doesn't wait";
    return {};
}

QString rowTrouble(const Row& row, const Picture& picture)
{
    if (QString trouble = timerTrouble(row, picture); !trouble.isEmpty())
        return trouble;
    if (row.operating != picture.operating)
        return picture.operating ? "records are open and no pass owns them" : "a pass without records";
    if (!fits(row.connection, !picture.parTrasm.AliveFrame.isEmpty()))
        return picture.parTrasm.AliveFrame.isEmpty() ? "ParTrasm is empty" : "ParTrasm names a connection";
    if (std::find(row.comSet.begin(), row.comSet.end(), picture.comSet) == row.comSet.end())
        return QStringLiteral("panel COMSet shows %1").arg(picture.comSet);
    return {};
}

// Nothing moves any more and nobody is told: what only Escape ends must have something else that ends it, an
// answer that is awaited or a failure that was shown. One that happened behind a box is shown when that has
// closed.
QString stillTrouble(const Picture& picture)
{
    using enum ActionCode;
    const bool moves = picture.dueIn[kAction] || picture.dueIn[kTimeOut];
    const bool mustMove = picture.code == SimulatorRaising || picture.code == ModemSetup ||
                          picture.code == Dialling || picture.code == WritingRam ||
                          picture.code == WritingEeprom;
    const bool told = picture.failedSinceRest || picture.questions > 0;
    return mustMove && !moves && !told ? QStringLiteral("nothing moves the line on") : QString();
}

} // namespace

QString nameOf(ActionCode code)
{
    switch (code) {
    case ActionCode::Idle:
        return "Idle";
    case ActionCode::SimulatorRaising:
        return "SimulatorRaising";
    case ActionCode::SimulatorClosing:
        return "SimulatorClosing";
    case ActionCode::Reading:
        return "Reading";
    case ActionCode::WritingRam:
        return "WritingRam";
    case ActionCode::WritingEeprom:
        return "WritingEeprom";
    case ActionCode::Checking:
        return "Checking";
    case ActionCode::MergingRam:
        return "MergingRam";
    case ActionCode::MergingEeprom:
        return "MergingEeprom";
    case ActionCode::Polling:
        return "Polling";
    case ActionCode::ModemSetup:
        return "ModemSetup";
    case ActionCode::Dialling:
        return "Dialling";
    case ActionCode::HangingUp:
        return "HangingUp";
    case ActionCode::CallWaiting:
        return "CallWaiting";
    case ActionCode::CallAnswering:
        return "CallAnswering";
    case ActionCode::FirstBlock:
        return "FirstBlock";
    case ActionCode::SecondBlock:
        return "SecondBlock";
    }
    return {};
}

QString disagreement(const Picture& picture)
{
    if (picture.portOpen != (picture.status != session::kPortClosed))
        return "port and status don't agree";
    if (picture.transaction)
        return "a transaction is open";
    if (picture.failureBoxes > 1)
        return "a failure is told inside the telling of another";
    QString trouble = "no row of the table has this code and status";
    for (const Row& row : rows()) {
        if (row.code != picture.code || row.status != picture.status)
            continue;
        trouble = rowTrouble(row, picture);
        if (trouble.isEmpty())
            break;
    }
    if (trouble.isEmpty())
        trouble = infoTrouble(picture);
    if (trouble.isEmpty())
        trouble = consoleTrouble(picture);
    if (trouble.isEmpty())
        trouble = stillTrouble(picture);
    const bool connection = picture.status > session::kLineIdle && !isCall(picture.code);
    if (trouble.isEmpty() && connection &&
        (!picture.companyOpen || picture.company != picture.raisedFor ||
         picture.parTrasm.IDGrp != picture.raisedForGroup))
        trouble = "the connection is not that of the company and group that it was raised for";
    if (trouble.isEmpty())
        return {};
    return QStringLiteral("%1 (code %2, status %3)").arg(trouble, nameOf(picture.code)).arg(picture.status);
}

namespace {

QString kindOf(const QByteArray& received)
{
    if (received.isEmpty())
        return "-";
    if (received.startsWith('<'))
        return received.endsWith('>') ? "block" : "half";
    return received.size() == 1 ? "byte" : "bytes";
}

} // namespace

QString digest(const Picture& picture)
{
    QString armed;
    for (const auto& due : picture.dueIn)
        armed += QLatin1Char(due ? '1' : '0');
    return QStringLiteral("%1/%2 t%3 p%4 a%5 c%6%7%8 op%9")
               .arg(nameOf(picture.code))
               .arg(picture.status)
               .arg(armed)
               .arg(picture.comSet)
               .arg(picture.allarm)
               .arg(picture.consoleOpen ? picture.raisedForGroup : "-")
               .arg(picture.simulator ? "s" : "")
               .arg(picture.autoDisconnect ? "a" : "")
               .arg(picture.operating) +
           QStringLiteral(" db%1 b%2 q%3f%4 par%5")
               .arg(picture.companyOpen ? picture.company : -1)
               .arg(kindOf(picture.received))
               .arg(picture.questions)
               .arg(picture.failureBoxes)
               .arg(picture.parTrasm.IDGrp) +
           picture.pending;
}

} // namespace line
