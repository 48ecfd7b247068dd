#pragma once

#include "bus/ActionCode.h"
#include "bus/LineTimer.h"
#include "bus/LineTrace.h"
#include "bus/ParTrasm.h"
#include "events/Forward.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "session/Session.h"
#include "values/ValueCause.h"

#include <QByteArray>
#include <functional>

namespace bus {

class ConsoleView;
class StatusPanels;

// What the link, the transfer and the incoming call share: the port and what came from it, the code, the
// timers, the record of the connection, and the small verbs that all of them use.
struct Line
{
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::SerialPort& port;
        platform::Clock& clock;
        platform::Operator& op;
        events::EventLog& events;
        StatusPanels& panels;
        ConsoleView& console;
    };

    explicit Line(const Surroundings& surroundings);

    void send(const QByteArray& bytes);
    // Takes all that waits in the port.
    QByteArray input();
    // The command, and its carriage return in a write of its own.
    void sendCommand(const QByteArray& command);
    // Blocks the program. A wait that would reach into the next day begins with that day.
    void Delay(double seconds);

    // Stores COMPort.Status and sets the console's commands and the pointer.
    void EnableDisable_RWMenu(session::LineStatus status);
    // Stores it alone.
    void setStatus(session::LineStatus status);
    // Counts the changes of the status: who asks the operator something sees by it whether the line is still
    // in the state that the question was about.
    int changes() const { return changes_; }

    // Stops what may be left of what the line did before.
    void leaveBehind();
    // Stops all timers of a connection or call, empties the buffer and idles.
    void comeToRest();
    // Empties the record. The choice of the cable is the console's, which keeps it in its button; with no
    // console open it stays here.
    void Reset_ParTrasm();

    void log(const QString& text, const QString& instrument = {});
    void logError(const QString& text);
    // Flushes the events into their log file; a failure is reported under the procedure's name and costs no
    // more.
    void flushEvents(const char* procedure);

    session::Session& session;
    const session::Texts& texts;
    platform::SerialPort& comCalidora;
    platform::Clock& clock;
    platform::Operator& op;
    events::EventLog& events;
    StatusPanels& staMain;
    ConsoleView& console;

    LineTimer tmrAction, tmrTimeOut, tmrConnection, tmrPolling, tmrAllarm;

    ActionCode code = ActionCode::Idle;
    QByteArray strReceive; // received and not yet consumed
    ParTrasm parTrasm;
    LineTrace trace{clock};
    // Called for each parameter that a write has read back.
    std::function<void(const values::CheckedValue&)> onChecked;

private:
    int changes_ = 0;
};

} // namespace bus
