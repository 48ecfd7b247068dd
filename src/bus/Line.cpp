#include "bus/Line.h"

#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/SerialPort.h"

namespace bus {

Line::Line(const Surroundings& with)
    : session(with.session), texts(with.texts), comCalidora(with.port), clock(with.clock), op(with.op),
      events(with.events), staMain(with.panels), console(with.console), tmrAction(clock), tmrTimeOut(clock),
      tmrConnection(clock), tmrPolling(clock), tmrAllarm(clock)
{
}

void Line::send(const QByteArray& bytes)
{
    comCalidora.Output(bytes);
    trace.sent(bytes, code);
}

QByteArray Line::input()
{
    const QByteArray bytes = comCalidora.Input();
    if (!bytes.isEmpty())
        trace.received(bytes, code);
    return bytes;
}

void Line::sendCommand(const QByteArray& command)
{
    send(command);
    send("\r");
}

void Line::Delay(double seconds)
{
    platform::awaitRoomInTheDay(clock, seconds);
    platform::waitOnDayClock(clock, seconds);
}

void Line::EnableDisable_RWMenu(session::LineStatus status)
{
    setStatus(status);
    op.setPointer(status == session::kBusy ? platform::Pointer::ArrowHourglass : platform::Pointer::Default);
    console.applyStatus(status);
}

void Line::setStatus(session::LineStatus status)
{
    session.COMPort.Status = status;
    ++changes_;
}

void Line::leaveBehind()
{
    tmrAction.stop();
    tmrPolling.stop();
}

void Line::comeToRest()
{
    leaveBehind();
    tmrTimeOut.stop();
    tmrConnection.stop();
    code = ActionCode::Idle;
    strReceive.clear();
}

void Line::Reset_ParTrasm()
{
    const bool kept = !console.isOpen() && parTrasm.Simulator;
    parTrasm = {};
    parTrasm.Simulator = kept;
}

void Line::log(const QString& text, const QString& instrument)
{
    events.Add_Event(events::kInformation, clock.now(), events::kReadWrite, parTrasm.Name, instrument, text);
}

void Line::logError(const QString& text)
{
    events.Add_Event(events::kError, clock.now(), events::kReadWrite, parTrasm.Name, {}, text);
}

void Line::flushEvents(const char* procedure)
{
    events.CreateLog_App();
    platform::guarded(procedure, [this] { events.deleteEvents(); });
}

} // namespace bus
