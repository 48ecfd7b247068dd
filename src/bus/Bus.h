#pragma once

#include "bus/CableDialogue.h"
#include "bus/ComPort.h"
#include "bus/IncomingCall.h"
#include "bus/Line.h"
#include "bus/ModemDialogue.h"
#include "bus/Transfer.h"
#include "platform/Guard.h"

namespace bus {

// The state machine of the line. The timer tmrAction sends, the port's event receives, and each hands the
// turn to the other by setting the code and starting tmrAction: the protocol's pacing is that timer, and
// nothing here retries.
//
// What is done in each code stands in one table (Bus.cpp); the work itself is the link's (ModemDialogue,
// CableDialogue), the transfer's and the incoming call's. The ends that a connection may come to by itself or
// by the operator's hand are in Supervision.cpp.
class Bus
{
public:
    using Surroundings = Line::Surroundings;

    explicit Bus(const Surroundings& surroundings);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    // Port: see ComPort.
    bool Set_COMPort() { return port_.Set_COMPort(); }
    bool Open_COMConnection() { return port_.Open_COMConnection(); }
    // What the line does ends first.
    bool Close_COMConnection();
    // A port that went, or would not open, is tried again without a word.
    void tryLostPort() { port_.tryLost(); }
    // Stores COMPort.Status and sets the console's commands.
    void EnableDisable_RWMenu(session::LineStatus status) { line_.EnableDisable_RWMenu(status); }

    // Connection: called inside a procedure of the console, whose handler takes a failure

    // Begins the link to the group in ParTrasm, over the modem or, with the button "Simulator" pressed, on
    // the cable, and arms the time-out.
    void raiseLink();
    // Begins the end of the link.
    void lowerLink();
    void Reset_ParTrasm() { line_.Reset_ParTrasm(); }
    ParTrasm& parTrasm() { return line_.parTrasm; }

    // Operations: false when the statement gives no records.
    bool beginRead(const QString& statement, bool bankRead, const QString& itemKey);
    bool beginWrite(const QString& statement, const QString& itemKey);
    bool isOperating() const { return transfer_.isOpen(); }
    // Escape: gives the operation up and keeps the connection.
    void abandonOperation();
    // Escape: cuts the connection, without a hang-up.
    void truncateConnection();

    // The company is about to go: what the line does for it ends as by Escape, at once and silently. What was
    // received goes to the log.
    void cutLine();
    // How often the line came into another state: an answer counts only for the state that was asked about.
    int changes() const { return line_.changes(); }

    // Alarms

    // Acknowledges: shows the notice and ends the beeping, when alarms wait.
    void Delete_Allarms();
    // Says what the panel "Info" says of a call in the language that is current now.
    void relabel();
    // Called when a report has come in and waits for acknowledgement.
    std::function<void()> onAlarms;

    // Who hears what each read-back of a write showed.
    void setOnChecked(std::function<void(const values::CheckedValue&)> heard)
    {
        line_.onChecked = std::move(heard);
    }
    // All that went over the line.
    const LineTrace& trace() const { return line_.trace; }

    // An instrument has called in and the line is its.
    bool isCallTaken() const { return call_.isTaken(); }
    ActionCode actionCode() const { return line_.code; }
    bool bankRead() const { return transfer_.bankRead(); }
    const QByteArray& received() const { return line_.strReceive; }

private:
    using Handler = void (*)(Bus&);
    // What the line does in a code when something arrives and when tmrAction ticks.
    struct Row
    {
        ActionCode code;
        Handler arrival;
        Handler tick;
    };
    static const Row& rowOf(ActionCode code);

    // Events
    void comCalidora_OnComm();
    void portVanished(const platform::RuntimeError& error);
    void listen(LineTimer& timer, const char* procedure, void (Bus::*tick)());
    // Runs the work of an event; what fails in it is told behind it.
    void work(const char* procedure, const std::function<void()>& work);
    void receive();
    void tmrAction_Timer();
    void tmrTimeOut_Timer();
    void tmrConnection_Timer();
    void tmrPolling_Timer();
    void tmrAllarm_Timer();

    void receivePollAnswer();
    void cut();
    void payLog();
    LinkDialogue& dialogue();
    void commonEnd();
    // What every end of a connection that nobody hung up has in common.
    void endConnection(const QString& event, const char* procedure);

    Line line_;
    ComPort port_{line_};
    ModemDialogue modem_{line_};
    CableDialogue cable_{line_};
    Transfer transfer_{line_, [this] { commonEnd(); }};
    IncomingCall call_{line_};
    platform::FailureQueue failures_;
    int connectionSeconds_ = 0;
};

} // namespace bus
