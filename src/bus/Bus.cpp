#include "bus/Bus.h"

#include "bus/ConsoleView.h"
#include "bus/StatusPanels.h"
#include "events/EventLog.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/SerialPort.h"
#include "session/Session.h"

namespace bus {

namespace {

std::unique_ptr<platform::Timer> makeTimer(platform::Clock& clock, std::function<void()> onTick)
{
    std::unique_ptr<platform::Timer> timer = clock.makeTimer();
    timer->onTick = std::move(onTick);
    return timer;
}

} // namespace

Bus::Bus(const Surroundings& with)
    : session_(with.session), texts_(with.texts), comCalidora_(with.port), clock_(with.clock),
      operator_(with.op), events_(with.events), staMain_(with.panels), console_(with.console),
      tmrAction_(makeTimer(clock_, [this] { tmrAction_Timer(); })),
      tmrTimeOut_(makeTimer(clock_, [this] { tmrTimeOut_Timer(); })),
      tmrConnection_(makeTimer(clock_, [this] { tmrConnection_Timer(); })),
      tmrPolling_(makeTimer(clock_, [this] { tmrPolling_Timer(); })),
      tmrAllarm_(makeTimer(clock_, [this] { tmrAllarm_Timer(); }))
{
    staMain_.setPicture(Panel::Allarm, images::kRest);
    comCalidora_.OnComm = [this] { comCalidora_OnComm(); };
    comCalidora_.OnFault = [this](const platform::RuntimeError& error) { portVanished(error); };
}

Bus::~Bus()
{
    comCalidora_.OnComm = nullptr;
    comCalidora_.OnFault = nullptr;
}

void Bus::EnableDisable_RWMenu(int status)
{
    session_.COMPort.Status = qint16(status);
    operator_.setPointer(status == 2 ? platform::Pointer::ArrowHourglass : platform::Pointer::Default);
    console_.applyStatus(status);
}

void Bus::Reset_ParTrasm()
{
    ParTrasm_ = {};
}

void Bus::log(const QString& text, const QString& instrument)
{
    events_.Add_Event(events::kInformation, clock_.now(), events::kReadWrite, ParTrasm_.Name, instrument,
                      text);
}

void Bus::logRecord(const QString& text)
{
    log(text, record().text(QStringLiteral("DesInst")));
}

void Bus::logError(const QString& text)
{
    events_.Add_Event(events::kError, clock_.now(), events::kReadWrite, ParTrasm_.Name, {}, text);
}

void Bus::flushEvents(const char* procedure)
{
    events_.CreateLog_App();
    platform::guarded(procedure, [this] { events_.deleteEvents(); });
}

} // namespace bus
