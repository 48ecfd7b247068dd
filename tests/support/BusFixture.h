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

    QStringList logged() const;                                       // descriptions on the console's list
    QStringList sentTexts() const;                                    // what went out, each write on its own
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
};

} // namespace support
