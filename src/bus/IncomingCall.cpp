#include "bus/IncomingCall.h"

#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/CodePage.h"
#include "platform/Operator.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <utility>

namespace bus {

// The search walks on behind a "RING", so of both words the dialled one has the last say.
void IncomingCall::scan()
{
    if (line_.strReceive.contains("ATD")) {
        begin();
        line_.strReceive.clear();
        line_.code = ActionCode::FirstBlock;
        line_.tmrAction.start(intervals::kSilence);
        line_.send("CONNECT");
    } else if (line_.strReceive.contains("RING")) {
        begin();
        line_.code = ActionCode::CallWaiting;
        line_.tmrAction.start(intervals::kFrame);
    }
}

void IncomingCall::begin()
{
    stored_ = false;
    endedConnection_ = line_.session.COMPort.Status == session::kConnected;
    line_.leaveBehind();
    line_.tmrTimeOut.stop();
    if (endedConnection_)
        leaveConnection();
    line_.setStatus(session::kBusy);
    line_.staMain.setPicture(Panel::COMSet, images::kPortBusy);
    line_.staMain.setText(Panel::Info, line_.texts(session::rows::kAlarmsComing));
}

// The line is the caller's from here on: clock, panels and console say so.
void IncomingCall::leaveConnection()
{
    line_.tmrConnection.stop();
    line_.log(line_.texts(session::rows::kDisconnected));
    line_.log(line_.staMain.text(Panel::Info));
    line_.Reset_ParTrasm();
    line_.EnableDisable_RWMenu(session::kBusy);
}

void IncomingCall::answer()
{
    line_.code = ActionCode::CallAnswering;
    // What ends the call runs before anything is sent: a port that takes nothing must not hold the line.
    line_.tmrTimeOut.start(intervals::kTimeOut);
    line_.sendCommand("ATA");
}

void IncomingCall::receiveConnect()
{
    if (!line_.strReceive.contains("CONNECT"))
        return;
    line_.strReceive.clear();
    line_.code = ActionCode::FirstBlock;
    line_.tmrTimeOut.stop();
    line_.tmrAction.start(intervals::kSilence);
}

void IncomingCall::awaitSilence()
{
    line_.tmrAction.start(intervals::kSilence);
}

void IncomingCall::takeFirstBlock()
{
    store(AlarmBlock::First);
    line_.code = ActionCode::SecondBlock;
    line_.tmrAction.start(intervals::kSecondBlock);
    line_.send("OK");
}

void IncomingCall::takeSecondBlock()
{
    store(AlarmBlock::Second);
    line_.code = ActionCode::Idle;
    line_.flushEvents("frmMain.tmrAction_Timer");
    line_.setStatus(session::kLineIdle);
    if (endedConnection_)
        line_.EnableDisable_RWMenu(session::kLineIdle);
    line_.staMain.setPicture(Panel::COMSet, images::kPortOpen);
    announce();
}

// The block is taken out of the buffer before anybody looks at it.
void IncomingCall::store(AlarmBlock block)
{
    const QString text = platform::decode(std::exchange(line_.strReceive, {}), line_.session.CodePage);
    if (Extract_Event_Allarm(text, block, line_.events, line_.clock.now()) > 0)
        stored_ = true;
}

void IncomingCall::announce()
{
    ++reports_;
    line_.staMain.setPicture(Panel::Allarm, images::kAlarm);
    line_.staMain.setText(Panel::Info, line_.texts(session::rows::kAlarmsReceived));
    line_.tmrAllarm.start(intervals::kAlarm);
    if (onAlarms)
        onAlarms();
}

bool IncomingCall::isTaken() const
{
    return line_.code >= ActionCode::CallWaiting && line_.code <= ActionCode::SecondBlock;
}

bool IncomingCall::save()
{
    if (!isTaken())
        return false;
    const AlarmBlock block = line_.code == ActionCode::SecondBlock ? AlarmBlock::Second : AlarmBlock::First;
    const QString text = platform::decode(std::exchange(line_.strReceive, {}), line_.session.CodePage);
    // What the block still lacks is nobody's failure here.
    if (storeEvents(parseAlarmBlock(text, block).rows, line_.events, line_.clock.now()) > 0)
        stored_ = true;
    return stored_;
}

void IncomingCall::beep()
{
    // A call that comes in waits for nothing: the beeping holds its breath.
    if (isTaken())
        return;
    for (int i = 0; i < 3; ++i) {
        line_.op.beep();
        line_.Delay(1.0);
    }
}

void IncomingCall::acknowledge()
{
    if (line_.staMain.picture(Panel::Allarm) != images::kAlarm)
        return;
    const int seen = reports_;
    line_.op.showFormModal(QStringLiteral("frmMessage"));
    // A report that came in behind the notice has not been seen: it is announced on.
    if (reports_ != seen)
        return;
    line_.tmrAllarm.stop();
    line_.staMain.setPicture(Panel::Allarm, images::kRest);
    line_.staMain.clearTip(Panel::Allarm);
    line_.staMain.setText(Panel::Info, {});
}

void IncomingCall::relabel()
{
    if (isTaken())
        line_.staMain.setText(Panel::Info, line_.texts(session::rows::kAlarmsComing));
    else if (line_.session.COMPort.Status <= session::kLineIdle &&
             line_.staMain.picture(Panel::Allarm) == images::kAlarm)
        line_.staMain.setText(Panel::Info, line_.texts(session::rows::kAlarmsReceived));
}

} // namespace bus
