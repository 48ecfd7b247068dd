// The other direction: an instrument calls in, delivers its alarms, and they are announced until
// acknowledged.

#include "bus/AlarmReport.h"
#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"

namespace bus {

using namespace platform;

// "RING" from a modem, "ATD" from an instrument on the cable. The search walks on behind a "RING", so of both
// words the dialled one has the last say.
void Bus::scanForCall()
{
    if (strReceive_.contains("ATD")) {
        showIncomingCall();
        strReceive_.clear();
        ActionCode_ = ActionCode::FirstBlock;
        tmrTimeOut_->stop();
        tmrAction_->start(intervals::kSilence);
        send("CONNECT");
    } else if (strReceive_.contains("RING")) {
        showIncomingCall();
        ActionCode_ = ActionCode::CallWaiting;
        tmrAction_->start(intervals::kFrame);
    }
}

void Bus::showIncomingCall()
{
    session_.COMPort.Status = 2;
    staMain_.setPicture(Panel::COMSet, images::kPortBusy);
    staMain_.setText(Panel::Info, texts_(555));
}

void Bus::answerCall()
{
    ActionCode_ = ActionCode::CallAnswering;
    sendCommand("ATA");
    session_.COMPort.Status = 2;
    tmrTimeOut_->start(intervals::kTimeOut);
}

void Bus::receiveCallConnect()
{
    if (!strReceive_.contains("CONNECT"))
        return;
    strReceive_.clear();
    ActionCode_ = ActionCode::FirstBlock;
    tmrTimeOut_->stop();
    tmrAction_->start(intervals::kSilence);
}

void Bus::takeFirstBlock()
{
    Extract_Event_Allarm(platform::decode(strReceive_, session_.CodePage), AlarmBlock::First, events_,
                         clock_.now());
    strReceive_.clear();
    ActionCode_ = ActionCode::SecondBlock;
    send("OK");
    tmrAction_->start(intervals::kSecondBlock);
}

void Bus::takeSecondBlock()
{
    Extract_Event_Allarm(platform::decode(strReceive_, session_.CodePage), AlarmBlock::Second, events_,
                         clock_.now());
    strReceive_.clear();
    ActionCode_ = ActionCode::Idle;
    flushEvents("frmMain.tmrAction_Timer");
    session_.COMPort.Status = 0;
    staMain_.setPicture(Panel::COMSet, images::kPortOpen);
    staMain_.setPicture(Panel::Allarm, images::kAlarm);
    staMain_.setText(Panel::Info, texts_(582));
    tmrAction_->setInterval(intervals::kFrame);
    tmrAllarm_->start(intervals::kAlarm);
    if (onAlarms)
        onAlarms();
}

void Bus::tmrAllarm_Timer()
{
    guarded("frmMain.tmrAllarm_Timer", [&] {
        for (int i = 0; i < 3; ++i) {
            operator_.beep();
            Delay(1.0);
        }
    });
}

void Bus::relabel()
{
    guarded("Module/Set_Language", [&] {
        const bool calling = ActionCode_ >= ActionCode::CallWaiting && ActionCode_ <= ActionCode::SecondBlock;
        if (calling)
            staMain_.setText(Panel::Info, texts_(555));
        else if (session_.COMPort.Status <= 0 && staMain_.picture(Panel::Allarm) == images::kAlarm)
            staMain_.setText(Panel::Info, texts_(582));
    });
}

void Bus::Delete_Allarms()
{
    guarded("Module/Delete_Allarms", [&] {
        if (staMain_.picture(Panel::Allarm) != images::kAlarm)
            return;
        operator_.showFormModal(QStringLiteral("frmMessage"));
        tmrAllarm_->stop();
        staMain_.setPicture(Panel::Allarm, images::kRest);
        staMain_.clearTip(Panel::Allarm);
        staMain_.setText(Panel::Info, {});
    });
}

} // namespace bus
