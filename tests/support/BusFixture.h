#pragma once

#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "events/EventLog.h"
#include "instrument/VirtualInstrument.h"
#include "platform/MemorySerialPort.h"
#include "platform/VirtualClock.h"
#include "support/CompanyFixture.h"
#include "support/Print.h"

namespace support {

// The virtual instrument as somebody who lives in the test's time.
class InstrumentPeer : public platform::Peer
{
public:
    InstrumentPeer(platform::VirtualClock& clock, platform::MemorySerialPort& port, instrument::Plants plants,
                   const instrument::Options& options);
    ~InstrumentPeer() override;

    std::optional<qint64> nextDue() const override { return device.nextDue(); }
    void advance(qint64 elapsed) override { device.advance(elapsed); }

    instrument::VirtualInstrument device;

private:
    platform::VirtualClock& clock_;
    platform::MemorySerialPort& port_;
};

// Bus and console over the test company, on a port in memory, in virtual time. Nobody answers on the line
// until plugIn() puts the virtual instrument there.
class BusFixture : public CompanyFixture
{
protected:
    BusFixture();

    // The company's own plants at the far end, by modem or cable.
    instrument::VirtualInstrument& plugIn(instrument::LinkMode link);
    // Opens the port and the console on an item of the company.
    void openConsole(const QString& key);
    // Raises the link to the console's group and waits for it.
    void connectOverModem();
    void connectOverCable();
    // Lets time pass until the line is idle or connected again, at most an hour.
    bool waitWhileBusy();
    bool waitFor(bus::ActionCode code, qint64 milliseconds = 60000);

    // The test itself at the far end: what it says arrives as one event, or as one event a byte.
    void arrives(const QByteArray& bytes);
    void arrivesByteByByte(const QByteArray& bytes);
    // Raises a cable link to the console's group by hand, and marks.
    void connectByHand();
    // From here on, sent() counts the time and the console's list begins anew.
    void mark();
    // What went out since the mark, an instant a line: "3000 ATH|<0D>" tells milliseconds and the separate
    // writes, bytes that are no plain characters in hexadecimal.
    QStringList sent() const;
    // The same as bytes, without the times.
    QList<QByteArray> frames() const;
    int status() const { return session.COMPort.Status; }

    QStringList logged();         // descriptions on the console's list
    QStringList events() const;   // tbEvent: "type/source/equipment/instrument/description"
    QStringList logLines() const; // of all log files, in order of their names
    QString value(int IDGrp, int IDInst, const QString& IDPar) const; // "NULL" for none
    QString state(int IDGrp, int IDInst, const QString& IDPar) const;
    QStringList logFiles() const; // in the folder Log

    platform::VirtualClock clock;
    platform::MemorySerialPort port{clock};
    bus::StatusPanels panels;
    console::ConsoleModel model{clock};
    events::EventLog eventLog{session, op, clock};
    bus::Bus bus{{session, texts, port, clock, op, eventLog, panels, model}};
    console::Console console{{session, texts, op, clock, structure, eventLog, bus, model}};
    std::unique_ptr<InstrumentPeer> peer;

private:
    qint64 marked_ = 0;
};

// The description of a log line.
QString descriptionOf(const QString& logLine);

} // namespace support
