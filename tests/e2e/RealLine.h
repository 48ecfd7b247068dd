#pragma once

#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "events/EventLog.h"
#include "platform/QtClock.h"
#include "platform/QtSerialPort.h"
#include "support/CompanyFixture.h"

#include <functional>

namespace e2e {

// Long enough for anything that is to come at all.
constexpr int kPatienceMs = 60000;

// The machine's serial port, which keeps what was said on it.
class RecordingPort : public platform::QtSerialPort
{
public:
    using QtSerialPort::QtSerialPort;

    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;

    // What was sent and, behind it, what came in before the next thing was sent. A carriage return belongs to
    // its command.
    struct Exchange
    {
        QByteArray sent;
        QByteArray reply;
    };
    const std::vector<Exchange>& exchanges() const { return exchanges_; }

private:
    std::vector<Exchange> exchanges_;
};

// Bus and console over the test company on the machine's own serial port and clock. COM1 is a link in the
// test's application folder, and nothing until a test puts it there.
class RealLine : public support::CompanyFixture
{
protected:
    RealLine();

    // Where a device is to appear as COM1.
    QString portLink() const { return file(QStringLiteral("ports/COM1")); }
    bool open() { return bus.Set_COMPort() && bus.Open_COMConnection(); }
    void openConsole(const QString& key);
    // Lets the program live until the condition holds; false when it doesn't in all that patience.
    static bool waitUntil(const std::function<bool()>& condition);
    bool waitFor(bus::ActionCode code);
    int status() const { return session.COMPort.Status; }
    QStringList logged();

    platform::QtClock clock;
    RecordingPort port{session.AppPath};
    bus::StatusPanels panels;
    console::ConsoleModel model{clock};
    events::EventLog eventLog{session, op, clock};
    bus::Bus bus{{session, texts, port, clock, op, eventLog, panels, model}};
    console::Console console{{session, texts, op, clock, structure, eventLog, bus, model}};
};

} // namespace e2e
