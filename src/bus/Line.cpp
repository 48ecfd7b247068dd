// The port and the link: opening and closing the line, the modem dialogue, the same dialogue reversed on a
// cable.

#include "bus/Bus.h"
#include "bus/ConsoleView.h"
#include "bus/LineSettings.h"
#include "bus/StatusPanels.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/SerialPort.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <array>

namespace bus {

using namespace platform;

namespace {

// What follows "ATH", in order; ProgressCount counts the commands sent.
constexpr std::array kSetUp{"AT", "ATZ", "ATE0", "AT&D0", "AT&K0"};

} // namespace

bool Bus::Set_COMPort()
{
    return guarded("Module/Set_COMPort", [&] {
        const QString settings = settingsText(session_.COMPort);
        comCalidora_.setCommPort(session_.COMPort.Port + 1);
        comCalidora_.setSettings(settings);
        comCalidora_.setHandshaking(session_.COMPort.FlowCtrl);
        staMain_.setText(Panel::COMSet,
                         QStringLiteral("COM%1:%2").arg(comCalidora_.CommPort()).arg(settings));
        return true;
    });
}

bool Bus::Open_COMConnection()
{
    return guarded("Module/Open_COMConnection", [&] {
        if (comCalidora_.PortOpen())
            return true;
        try {
            comCalidora_.setPortOpen(true);
        } catch (const RuntimeError& error) {
            return failedToOpen(error);
        }
        staMain_.setPicture(Panel::COMSet, images::kPortOpen);
        session_.COMPort.Status = 0;
        return true;
    });
}

bool Bus::failedToOpen(const RuntimeError& error)
{
    session_.COMPort.Status = -1;
    staMain_.setPicture(Panel::COMSet, images::kPortClosed);
    const bool missing = error.number == errors::kPortNumberInvalid;
    const bool inUse = error.number == errors::kPortOpen || error.number == errors::kPortInUse;
    if (!missing && !inUse)
        throw error;
    session_.strMsg = texts_(577) + QString::number(session_.COMPort.Port + 1) + QLatin1Char(' ') +
                      texts_(missing ? 578 : 579);
    operator_.messageBox(session_.strMsg, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
    return false;
}

bool Bus::Close_COMConnection()
{
    return guarded("Module/Close_COMConnection", [&] {
        if (comCalidora_.PortOpen()) {
            comCalidora_.setPortOpen(false);
            staMain_.setPicture(Panel::COMSet, images::kPortClosed);
            session_.COMPort.Status = -1;
        }
        return true;
    });
}

void Bus::send(const QByteArray& bytes)
{
    comCalidora_.Output(bytes);
}

void Bus::sendCommand(const QByteArray& command)
{
    send(command);
    send("\r");
}

void Bus::Delay(double seconds)
{
    waitOnDayClock(clock_, seconds);
}

void Bus::sendEscapeAndHangUp()
{
    send("+++");
    Delay(kGuardSeconds);
    sendCommand("ATH");
}

void Bus::raiseLink()
{
    staMain_.setPicture(Panel::COMSet, images::kPortBusy);
    connectionSeconds_ = 0;
    if (console_.simulatorPressed()) {
        ActionCode_ = ActionCode::SimulatorRaising;
        send("RING");
    } else {
        ActionCode_ = ActionCode::ModemSetup;
        ProgressCount_ = 1;
        sendEscapeAndHangUp();
    }
    tmrTimeOut_->start(intervals::kTimeOut);
}

void Bus::receiveModemSetup()
{
    // Behind the last command anything at all is taken for its answer.
    if (ProgressCount_ > int(kSetUp.size())) {
        dial();
    } else if (strReceive_.contains("OK")) {
        strReceive_.clear();
        tmrAction_->start(intervals::kModemCommand);
    }
}

void Bus::sendNextModemCommand()
{
    // A tick that comes when the dialogue is through finds nothing to send.
    if (ProgressCount_ < 1 || ProgressCount_ > int(kSetUp.size()))
        return;
    sendCommand(kSetUp[std::size_t(ProgressCount_ - 1)]);
    ++ProgressCount_;
}

void Bus::dial()
{
    ActionCode_ = ActionCode::Dialling;
    tmrAction_->stop();
    log(texts_(544) + QLatin1Char(' ') + ParTrasm_.Phone);
    sendCommand("ATD" + encode(ParTrasm_.Phone, session_.CodePage));
}

void Bus::connectionUp()
{
    const bool onCable = ActionCode_ == ActionCode::SimulatorRaising;
    strReceive_.clear();
    ActionCode_ = ActionCode::Idle;
    tmrTimeOut_->stop();
    tmrConnection_->start(intervals::kConnectionClock);
    if (onCable)
        send("CONNECT");
    log(texts_(541));
    EnableDisable_RWMenu(1);
    tmrPolling_->start(intervals::kPolling);
}

void Bus::lowerLink()
{
    log(texts_(557) + QLatin1Char(' ') + ParTrasm_.Name + QLatin1Char(' ') + texts_(558));
    EnableDisable_RWMenu(2);
    tmrPolling_->stop();
    staMain_.setPicture(Panel::COMSet, images::kPortOpen);
    if (console_.simulatorPressed()) {
        ActionCode_ = ActionCode::SimulatorClosing;
        send("+++");
    } else {
        ActionCode_ = ActionCode::HangingUp;
        sendEscapeAndHangUp();
    }
}

void Bus::endConnectionOnCable()
{
    tmrConnection_->stop();
    sendCommand("ATH");
    connectionDown();
    ActionCode_ = ActionCode::Idle;
}

void Bus::connectionDown()
{
    log(texts_(542));
    log(staMain_.text(Panel::Info));
    staMain_.setText(Panel::Info, {});
    Reset_ParTrasm();
    flushEvents("frmMain.comCalidora_OnComm");
    EnableDisable_RWMenu(0);
}

} // namespace bus
