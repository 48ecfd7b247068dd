#pragma once

#include "bus/ActionCode.h"
#include "bus/ParTrasm.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

namespace platform {
class Clock;
class Operator;
class Recordset;
class SerialPort;
class Timer;
struct RuntimeError;
} // namespace platform
namespace session {
struct Session;
class Texts;
} // namespace session
namespace events {
class EventLog;
}
namespace bus {

class ConsoleView;
class StatusPanels;

// The state machine of the line. The timer tmrAction sends, the port's event receives, and each hands the
// turn to the other by setting the code and starting tmrAction: the protocol's pacing is that timer, and
// nothing here retries.
//
// One procedure per event and code, laid out by concern: Line.cpp (port, link dialogues), Receive.cpp
// (answers), Sequence.cpp (passes over rsWork), Supervision.cpp (time-out, clock, poll, lost port),
// Alarms.cpp (incoming calls).
class Bus
{
public:
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

    explicit Bus(const Surroundings& surroundings);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    // Port

    // Applies COMPort to the port and shows it. False after any failure.
    bool Set_COMPort();
    // Opens the port; true when it is open afterwards. A failure shows its box and sets Status -1.
    bool Open_COMConnection();
    bool Close_COMConnection();
    // Stores COMPort.Status and sets the console's commands.
    void EnableDisable_RWMenu(int status);

    // Connection: called inside a procedure of the console, whose handler takes a failure

    // Begins the link to the group in ParTrasm, over the modem or, with the button "Simulator" pressed, on
    // the cable, and arms the time-out.
    void raiseLink();
    // Begins the end of the link.
    void lowerLink();
    void Reset_ParTrasm();
    struct ParTrasm& parTrasm() { return ParTrasm_; }

    // Operations

    // A read or a write over rsWork, which is open with records; the first frame leaves 3 s later.
    void beginRead(bool bankRead, const QString& itemKey);
    void beginWrite(const QString& itemKey);
    // Escape: gives the operation up and keeps the connection.
    void abandonOperation();
    // Escape: cuts the connection, without a hang-up.
    void truncateConnection();

    // Alarms

    // Acknowledges: shows the notice and ends the beeping, when alarms wait.
    void Delete_Allarms();
    // Says what the panel "Info" says of a call in the language that is current now.
    void relabel();
    // Called when a report has come in and waits for acknowledgement.
    std::function<void()> onAlarms;

    ActionCode actionCode() const { return ActionCode_; }
    bool bankRead() const { return BankRead_; }
    const QByteArray& received() const { return strReceive_; }

private:
    // Events
    void comCalidora_OnComm();
    void portVanished(const platform::RuntimeError& error);
    void tmrAction_Timer();
    void tmrTimeOut_Timer();
    void tmrConnection_Timer();
    void tmrPolling_Timer();
    void tmrAllarm_Timer();

    // Line
    void send(const QByteArray& bytes);
    void sendCommand(const QByteArray& command);
    void sendEscapeAndHangUp();
    void Delay(double seconds);
    bool failedToOpen(const platform::RuntimeError& error);
    void receiveModemSetup();
    void sendNextModemCommand();
    void dial();
    void connectionUp();
    void connectionDown();
    void endConnectionOnCable();
    // Flushes the events into their log file; a failure is reported under the procedure's name and costs no
    // more.
    void flushEvents(const char* procedure);

    // Receive
    void receive();
    bool takeAnswer();
    void receiveRead();
    void receiveCheck();
    void receiveOldByte();
    QString decode(const QByteArray& raw, const platform::Recordset& record) const;
    bool Update_Param(const platform::Recordset& record, const QString& value);
    void Extract_Param();
    void storeBank(platform::Recordset& parameters, int bankAddress);

    // Sequence
    void dispatchAction();
    void beginOperation(ActionCode code, const QString& itemKey);
    // The record step: false, after `atEnd` has run, when the records are through; false alone when there are
    // none.
    bool takeNextRecord(bool awaitsAnswer, const std::function<void()>& atEnd);
    void readPass();
    void ramPass();
    void eepromPass();
    void checkPass();
    void rewind(ActionCode code, int text);
    void endReadPass();
    void endCheckPass();
    void closeOperation();
    void commonEnd();
    void requestParameter();
    void requestOldByte();
    void prepareBitField(ActionCode merging);
    void logParameter(int openingText);
    QByteArray dataBytes() const;
    QByteArray address() const;
    const platform::Recordset& record() const;

    // Alarms
    void scanForCall();
    void showIncomingCall();
    void answerCall();
    void receiveCallConnect();
    void takeFirstBlock();
    void takeSecondBlock();

    void log(const QString& text, const QString& instrument = {});
    void logRecord(const QString& text);
    void logError(const QString& text);

    session::Session& session_;
    const session::Texts& texts_;
    platform::SerialPort& comCalidora_;
    platform::Clock& clock_;
    platform::Operator& operator_;
    events::EventLog& events_;
    StatusPanels& staMain_;
    ConsoleView& console_;

    std::unique_ptr<platform::Timer> tmrAction_, tmrTimeOut_, tmrConnection_, tmrPolling_, tmrAllarm_;

    ActionCode ActionCode_ = ActionCode::Idle;
    QByteArray strReceive_; // received and not yet consumed
    bool BankRead_ = false; // the read in progress fetches whole banks; a write leaves it as it is
    QString AndMask_, OrMask_;
    int ProgressCount_ = 0;
    int ProgressMax_ = 0;
    struct ParTrasm ParTrasm_;
    int connectionSeconds_ = 0;
    bool receiving_ = false;
    bool arrivedMeanwhile_ = false;
};

} // namespace bus
