#pragma once

#include "bus/ParTrasm.h"

#include <QByteArray>
#include <QString>
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
namespace values {
struct ParameterCoding;
}

namespace bus {

class ConsoleView;
class StatusPanels;

// What the program is doing on the line right now.
enum class ActionCode : qint16 {
    Idle = 0,
    SimulatorRaising = 10,
    SimulatorClosing = 20,
    Reading = 30,
    WritingRam = 40,
    WritingEeprom = 50,
    Checking = 60,
    MergingRam = 70,
    MergingEeprom = 80,
    Polling = 90,
    ModemSetup = 100,
    Dialling = 110,
    HangingUp = 120,
    CallWaiting = 200,
    CallAnswering = 210,
    FirstBlock = 220,
    SecondBlock = 230,
};

// The state machine of the line. The timer tmrAction sends, the port's event receives, and each hands the turn to the
// other by setting the code and starting tmrAction: the protocol's pacing is that timer, and nothing here retries.
//
// One procedure per event and code, laid out by concern: Line.cpp (port, link dialogues), Receive.cpp (answers),
// Sequence.cpp (passes over rsWork), Supervision.cpp (time-out, clock, poll).
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

    // Port ---------------------------------------------------------------------------------------------------------
    // Applies COMPort to the port and shows it.
    bool Set_COMPort();
    // Opens the port; true when it is open afterwards. A failure shows its box and sets Status -1.
    bool Open_COMConnection();
    bool Close_COMConnection();
    // Stores COMPort.Status and sets the console's commands.
    void EnableDisable_RWMenu(int status);

    // Connection ---------------------------------------------------------------------------------------------------
    // Begins the link to the group in ParTrasm, over the modem or, with the button "Simulator" pressed, on the cable,
    // and arms the time-out.
    void raiseLink();
    // Begins the end of the link.
    void lowerLink();
    void Reset_ParTrasm();
    const struct ParTrasm& parTrasm() const { return ParTrasm_; }
    struct ParTrasm& parTrasm() { return ParTrasm_; }

    // Operations ---------------------------------------------------------------------------------------------------
    // Begins the pass `code` (Reading or WritingRam) over rsWork, which is open; the first frame leaves 3 s later.
    void beginOperation(ActionCode code, bool bankRead, const QString& itemKey);
    // Whether the read in progress fetches whole banks; a write leaves it as the last read set it.
    bool bankRead() const { return BankRead_; }
    // Escape: gives the operation up and keeps the connection.
    void abandonOperation();
    // Escape: cuts the line, without a hang-up.
    void truncateConnection();

    ActionCode actionCode() const { return ActionCode_; }
    const QByteArray& received() const { return strReceive_; }
    // Seconds that the connection stands, as the panel "Info" shows them.
    QString connectionClock() const;

private:
    // Events
    void comCalidora_OnComm();
    void portVanished(const platform::RuntimeError& error);
    void tmrAction_Timer();
    void tmrTimeOut_Timer();
    void tmrConnection_Timer();
    void tmrPolling_Timer();

    // Line
    void send(const QByteArray& bytes);
    void sendCommand(const QByteArray& command);
    void Delay(double seconds);
    void sendNextModemCommand();
    void dial();
    void receiveModemSetup();
    void connectionUp();
    void sendHangUp();
    void endConnection();
    void flushEvents();
    void failToOpenPort(const platform::RuntimeError& error);

    // Receive
    bool takeAnswer();
    void receiveRead();
    void receiveCheck();
    void receiveOldByte(ActionCode backTo);
    QString decode(const QByteArray& raw, const platform::Recordset& record) const;
    void Extract_Param();

    // Sequence
    enum class Step { Taken, PassEnded, NoRecords };
    Step takeNextRecord(bool awaitsAnswer);
    void readPass();
    void ramPass();
    void eepromPass();
    void checkPass();
    void requestOldByte();
    void logDetected();
    void requestParameter();
    void logRecord(int textBegin);
    void beginNextWritingPass(ActionCode code, int text);
    void endPasses();
    void endOperation();
    QByteArray dataBytes() const;
    void log(const QString& text, const QString& instrument = {}, int type = 1);
    void logForRecord(const QString& text);
    QString field(const char* name) const;

    session::Session& session_;
    const session::Texts& texts_;
    platform::SerialPort& comCalidora_;
    platform::Clock& clock_;
    platform::Operator& operator_;
    events::EventLog& events_;
    StatusPanels& staMain_;
    ConsoleView& console_;

    std::unique_ptr<platform::Timer> tmrAction_, tmrTimeOut_, tmrConnection_, tmrPolling_;

    ActionCode ActionCode_ = ActionCode::Idle;
    QByteArray strReceive_;
    bool BankRead_ = false;
    QString AndMask_, OrMask_;
    int ProgressCount_ = 0;
    int ProgressMax_ = 0;
    struct ParTrasm ParTrasm_;
    int connectionSeconds_ = 0;
};

} // namespace bus
