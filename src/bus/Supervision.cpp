// The watchers of the line: the time-out, the connection clock, the alive poll, Escape, a company that goes,
// a port that vanishes.

#include "bus/Bus.h"
#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/SerialPort.h"
#include "session/TextRows.h"
#include "session/Texts.h"

namespace bus {

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
    line_.comeToRest();
    endConnection(line_.texts(583), "frmMain.tmrTimeOut_Timer");
}

void Bus::tmrConnection_Timer()
{
    ++connectionSeconds_;
    line_.staMain.setText(Panel::Info, line_.texts(566) + clockText(connectionSeconds_));
}

void Bus::tmrPolling_Timer()
{
    line_.tmrPolling.stop();
    line_.code = ActionCode::Polling;
    line_.send(line_.parTrasm.AliveFrame);
}

void Bus::receivePollAnswer()
{
    // The last poll of a connection that was cut has no answer: what comes may be a call.
    if (line_.session.COMPort.Status == session::kLineIdle)
        return call_.scan();
    if (line_.strReceive.size() <= 1)
        return;
    line_.strReceive.clear();
    line_.tmrPolling.start(intervals::kPolling);
}

void Bus::abandonOperation()
{
    // A call is nobody's operation, and there is no connection that could stay behind it.
    if (call_.isTaken())
        return truncateConnection();
    transfer_.close();
    line_.code = ActionCode::Idle;
    line_.strReceive.clear();
    line_.logError(line_.texts(session::rows::kCancelled));
    line_.tmrPolling.start(intervals::kPolling);
    line_.EnableDisable_RWMenu(session::kConnected);
}

void Bus::truncateConnection()
{
    const bool alarms = call_.save();
    line_.code = ActionCode::Idle;
    line_.strReceive.clear();
    platform::guarded("frmReadWrite.lvwItems_KeyDown", [this] { line_.send("+++"); });
    endConnection(line_.texts(session::rows::kTruncated), "frmReadWrite.lvwItems_KeyDown");
    if (alarms)
        call_.announce();
}

void Bus::cutLine()
{
    // A call that came with no company open has nothing to do with one that could not be opened.
    if (!call_.isTaken() || line_.session.cnDatabase.State() != platform::Connection::Closed)
        cut();
}

bool Bus::Close_COMConnection()
{
    if (line_.comCalidora.PortOpen())
        cut();
    return port_.Close_COMConnection();
}

void Bus::cut()
{
    work("Module/Disconnect_Database", [this] {
        const bool live = line_.session.COMPort.Status > session::kLineIdle;
        const bool alarms = call_.save();
        line_.comeToRest();
        if (!live)
            return payLog();
        platform::guarded("Module/Disconnect_Database", [this] { line_.send("+++"); });
        endConnection(line_.texts(session::rows::kTruncated), "Module/Disconnect_Database");
        if (alarms)
            call_.announce();
    });
    failures_.tell();
}

// Who closes a company or the program gives what no log file took its last chance.
void Bus::payLog()
{
    if (line_.events.owes())
        line_.flushEvents("Module/Disconnect_Database");
}

void Bus::endConnection(const QString& event, const char* procedure)
{
    transfer_.close();
    line_.tmrConnection.stop();
    line_.staMain.setPicture(Panel::COMSet, images::kPortOpen);
    line_.staMain.setText(Panel::Info, {});
    line_.logError(event);
    line_.Reset_ParTrasm();
    line_.flushEvents(procedure);
    line_.EnableDisable_RWMenu(session::kLineIdle);
}

void Bus::portVanished(const platform::RuntimeError& error)
{
    work("frmMain.comCalidora_OnComm", [&] {
        const bool live = line_.session.COMPort.Status > session::kLineIdle;
        const bool alarms = call_.save();
        transfer_.close();
        line_.comeToRest();
        if (live) {
            line_.logError(line_.texts.own(QStringLiteral("port.vanished")));
            line_.Reset_ParTrasm();
            line_.flushEvents("frmMain.comCalidora_OnComm");
        }
        line_.EnableDisable_RWMenu(session::kLineIdle);
        line_.staMain.setText(Panel::Info, {});
        line_.staMain.setPicture(Panel::COMSet, images::kPortClosed);
        line_.setStatus(session::kPortClosed);
        port_.lost();
        if (alarms)
            call_.announce();
        throw error;
    });
    failures_.tell();
}

} // namespace bus
