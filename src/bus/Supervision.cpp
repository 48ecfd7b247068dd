// The watchers of the line: the time-out, the connection clock, the alive poll, Escape, a port that vanishes.

#include "bus/Bus.h"
#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/SerialPort.h"
#include "session/Session.h"
#include "session/Texts.h"

namespace bus {

using namespace platform;

namespace {

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString clockText(int seconds)
{
    return QString::number(seconds / 3600) + QLatin1Char(':') + twoDigits(seconds / 60 % 60) +
           QLatin1Char(':') + twoDigits(seconds % 60);
}

} // namespace

void Bus::tmrTimeOut_Timer()
{
    guarded("frmMain.tmrTimeOut_Timer", [&] {
        tmrTimeOut_->stop();
        console_.showProgress(false);
        console_.operationEnded();
        ActionCode_ = ActionCode::Idle;
        strReceive_.clear();
        tmrConnection_->stop();
        staMain_.setPicture(Panel::COMSet, images::kPortOpen);
        staMain_.setText(Panel::Info, {});
        logError(texts_(583));
        Reset_ParTrasm();
        flushEvents("frmMain.tmrTimeOut_Timer");
        EnableDisable_RWMenu(0);
    });
}

void Bus::tmrConnection_Timer()
{
    guarded("frmMain.tmrConnection_Timer", [&] {
        ++connectionSeconds_;
        staMain_.setText(Panel::Info, texts_(566) + clockText(connectionSeconds_));
    });
}

void Bus::tmrPolling_Timer()
{
    guarded("frmMain.tmrPolling_Timer", [&] {
        tmrPolling_->stop();
        ActionCode_ = ActionCode::Polling;
        send(ParTrasm_.AliveFrame);
    });
}

void Bus::abandonOperation()
{
    console_.showProgress(false);
    console_.operationEnded();
    ActionCode_ = ActionCode::Idle;
    strReceive_.clear();
    logError(texts_(502));
    tmrPolling_->start(intervals::kPolling);
    EnableDisable_RWMenu(1);
}

void Bus::truncateConnection()
{
    console_.showProgress(false);
    console_.operationEnded();
    ActionCode_ = ActionCode::Idle;
    strReceive_.clear();
    send("+++");
    tmrConnection_->stop();
    staMain_.setPicture(Panel::COMSet, images::kPortOpen);
    staMain_.setText(Panel::Info, {});
    logError(texts_(575));
    Reset_ParTrasm();
    flushEvents("frmReadWrite.lvwItems_KeyDown");
    EnableDisable_RWMenu(0);
}

void Bus::portVanished(const RuntimeError& error)
{
    // First everything comes to rest, then the operator is told: the box runs an event loop of its own.
    for (Timer* timer : {tmrAction_.get(), tmrTimeOut_.get(), tmrConnection_.get(), tmrPolling_.get()})
        timer->stop();
    console_.showProgress(false);
    console_.operationEnded();
    ActionCode_ = ActionCode::Idle;
    strReceive_.clear();
    const bool connected = session_.COMPort.Status > 0;
    if (connected) {
        logError(texts_.own(QStringLiteral("port.vanished")));
        Reset_ParTrasm();
        flushEvents("frmMain.comCalidora_OnComm");
    }
    EnableDisable_RWMenu(0);
    staMain_.setText(Panel::Info, {});
    staMain_.setPicture(Panel::COMSet, images::kPortClosed);
    session_.COMPort.Status = -1;
    reportFailure({error.number, error.description, QStringLiteral("frmMain.comCalidora_OnComm")});
}

} // namespace bus
