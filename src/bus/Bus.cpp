#include "bus/Bus.h"

#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "platform/SerialPort.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <algorithm>

namespace bus {

namespace {

// What no word was found in is kept up to this much.
constexpr qsizetype kMostKept = 64 * 1024;

} // namespace

Bus::Bus(const Surroundings& with) : line_(with)
{
    line_.staMain.setPicture(Panel::Allarm, images::kRest);
    line_.comCalidora.OnComm = [this] { comCalidora_OnComm(); };
    line_.comCalidora.OnFault = [this](const platform::RuntimeError& error) { portVanished(error); };
    listen(line_.tmrAction, "frmMain.tmrAction_Timer", &Bus::tmrAction_Timer);
    listen(line_.tmrTimeOut, "frmMain.tmrTimeOut_Timer", &Bus::tmrTimeOut_Timer);
    listen(line_.tmrConnection, "frmMain.tmrConnection_Timer", &Bus::tmrConnection_Timer);
    listen(line_.tmrPolling, "frmMain.tmrPolling_Timer", &Bus::tmrPolling_Timer);
    listen(line_.tmrAllarm, "frmMain.tmrAllarm_Timer", &Bus::tmrAllarm_Timer);
    call_.onAlarms = [this] {
        if (onAlarms)
            onAlarms();
    };
}

Bus::~Bus()
{
    line_.comCalidora.OnComm = nullptr;
    line_.comCalidora.OnFault = nullptr;
}

// The line at one glance: what is done in each code when something arrives, and when tmrAction ticks.
const Bus::Row& Bus::rowOf(ActionCode code)
{
    static constexpr Handler nothing = [](Bus&) {};
    static constexpr Handler discard = [](Bus& bus) { bus.line_.strReceive.clear(); };
    // clang-format off
    static constexpr Row kRows[] = {
        {ActionCode::Idle,             [](Bus& b) { b.call_.scan(); },                nothing},
        {ActionCode::SimulatorRaising, [](Bus& b) { b.cable_.receiveAnswer(); },      [](Bus& b) { b.cable_.sayConnect(); }},
        {ActionCode::SimulatorClosing, [](Bus& b) { b.cable_.receiveEnd(); },         nothing},
        {ActionCode::Reading,          [](Bus& b) { b.transfer_.receiveValue(); },    [](Bus& b) { b.transfer_.readNext(); }},
        {ActionCode::WritingRam,       discard,                                       [](Bus& b) { b.transfer_.writeRamNext(); }},
        {ActionCode::WritingEeprom,    discard,                                       [](Bus& b) { b.transfer_.writeEepromNext(); }},
        {ActionCode::Checking,         [](Bus& b) { b.transfer_.receiveCheck(); },    [](Bus& b) { b.transfer_.checkNext(); }},
        {ActionCode::MergingRam,       [](Bus& b) { b.transfer_.receiveOldByte(); },  [](Bus& b) { b.transfer_.requestOldByte(); }},
        {ActionCode::MergingEeprom,    [](Bus& b) { b.transfer_.receiveOldByte(); },  [](Bus& b) { b.transfer_.requestOldByte(); }},
        {ActionCode::Polling,          [](Bus& b) { b.receivePollAnswer(); },         nothing},
        {ActionCode::ModemSetup,       [](Bus& b) { b.modem_.receiveSetUpReply(); },  [](Bus& b) { b.modem_.sendNextCommand(); }},
        {ActionCode::Dialling,         [](Bus& b) { b.modem_.receiveConnect(); },     nothing},
        {ActionCode::HangingUp,        [](Bus& b) { b.modem_.receiveHangUp(); },      nothing},
        {ActionCode::CallWaiting,      discard,                                       [](Bus& b) { b.call_.answer(); }},
        {ActionCode::CallAnswering,    [](Bus& b) { b.call_.receiveConnect(); },      nothing},
        {ActionCode::FirstBlock,       [](Bus& b) { b.call_.awaitSilence(); },        [](Bus& b) { b.call_.takeFirstBlock(); }},
        {ActionCode::SecondBlock,      [](Bus& b) { b.call_.awaitSilence(); },        [](Bus& b) { b.call_.takeSecondBlock(); }},
    };
    // clang-format on
    return *std::find_if(std::begin(kRows), std::end(kRows),
                         [code](const Row& row) { return row.code == code; });
}

void Bus::comCalidora_OnComm()
{
    receive();
    failures_.tell();
}

void Bus::receive()
{
    work("frmMain.comCalidora_OnComm", [this] {
        const QByteArray bytes = line_.input();
        if (bytes.isEmpty()) // a tick has taken them
            return;
        line_.strReceive += bytes;
        if (line_.code == ActionCode::Idle)
            line_.strReceive = line_.strReceive.right(kMostKept);
        rowOf(line_.code).arrival(*this);
    });
}

// Each tick first lets in what waits in the port: bytes that came while a box stood or a wait blocked are
// older than it. When they have set the timer themselves, the tick is void.
void Bus::listen(LineTimer& timer, const char* procedure, void (Bus::*tick)())
{
    timer.listen(
        [this, &timer, procedure, tick] {
            const int settings = timer.settings();
            receive();
            if (timer.settings() == settings)
                work(procedure, [this, tick] { (this->*tick)(); });
        },
        [this] { failures_.tell(); });
}

void Bus::work(const char* procedure, const std::function<void()>& work)
{
    const platform::FailureQueue::Holding holding(failures_);
    platform::guarded(procedure, work);
}

void Bus::tmrAction_Timer()
{
    line_.tmrAction.stop();
    rowOf(line_.code).tick(*this);
}

void Bus::tmrAllarm_Timer()
{
    call_.beep();
}

void Bus::raiseLink()
{
    line_.leaveBehind();
    line_.staMain.setPicture(Panel::COMSet, images::kPortBusy);
    connectionSeconds_ = 0;
    // It also ends an attempt whose first word can't be sent; one that begins has its time from there.
    line_.tmrTimeOut.start(intervals::kTimeOut);
    dialogue().raise();
    line_.tmrTimeOut.start(intervals::kTimeOut);
}

void Bus::lowerLink()
{
    line_.log(line_.texts(557) + QLatin1Char(' ') + line_.parTrasm.Name + QLatin1Char(' ') +
              line_.texts(session::rows::kStars));
    line_.EnableDisable_RWMenu(session::kBusy);
    line_.tmrPolling.stop();
    line_.staMain.setPicture(Panel::COMSet, images::kPortOpen);
    dialogue().lower();
}

// The toolbar's button alone tells the way.
LinkDialogue& Bus::dialogue()
{
    if (line_.console.simulatorPressed())
        return cable_;
    return modem_;
}

bool Bus::beginRead(const QString& statement, bool bankRead, const QString& itemKey)
{
    if (!transfer_.open(statement))
        return false;
    transfer_.beginRead(bankRead, itemKey);
    return true;
}

bool Bus::beginWrite(const QString& statement, const QString& itemKey)
{
    if (!transfer_.open(statement))
        return false;
    transfer_.beginWrite(itemKey);
    return true;
}

void Bus::commonEnd()
{
    if (line_.console.autoDisconnectPressed()) {
        lowerLink();
    } else {
        line_.EnableDisable_RWMenu(session::kConnected);
        line_.tmrPolling.start(intervals::kPolling);
    }
}

void Bus::Delete_Allarms()
{
    platform::guarded("Module/Delete_Allarms", [this] { call_.acknowledge(); });
}

void Bus::relabel()
{
    platform::guarded("Module/Set_Language", [this] { call_.relabel(); });
}

} // namespace bus
