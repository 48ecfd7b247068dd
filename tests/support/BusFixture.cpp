#include "support/BusFixture.h"

#include "instrument/CompanyFile.h"
#include "platform/TextFile.h"

#include <QDir>

namespace support {

namespace {

QString readable(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        if (byte > ' ' && byte < 0x7F)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("<%1>").arg(int(uchar(byte)), 2, 16, QLatin1Char('0')).toUpper();
    }
    return text;
}

} // namespace

InstrumentPeer::InstrumentPeer(platform::VirtualClock& clock, platform::MemorySerialPort& port,
                               instrument::Plants plants, const instrument::Options& options)
    : device(std::move(plants), options, clock.elapsed()), clock_(clock), port_(port)
{
    device.send = [this](const QByteArray& bytes) { port_.feed(bytes); };
    port_.onOutput = [this](const QByteArray& bytes) { device.receive(bytes, clock_.elapsed()); };
    clock_.addPeer(*this);
}

InstrumentPeer::~InstrumentPeer()
{
    clock_.removePeer(*this);
    port_.onOutput = nullptr;
}

BusFixture::BusFixture()
{
    if (qEnvironmentVariableIsSet("CALIDORA_EVENTS_FIRST"))
        clock.setOrder(platform::VirtualClock::Order::EventsFirst);
    QDir(session.AppPath).mkpath(QStringLiteral("Log"));
    connectPlant();
    bus.Set_COMPort();
    bus.Open_COMConnection();
    op.forms.clear();
}

instrument::VirtualInstrument& BusFixture::plugIn(instrument::LinkMode link)
{
    instrument::Options options;
    options.link = link;
    peer.reset();
    peer = std::make_unique<InstrumentPeer>(clock, port, instrument::loadCompanyFile(plantFile()).plants,
                                            options);
    return peer->device;
}

void BusFixture::openConsole(const QString& key)
{
    console.load(key);
}

void BusFixture::connectOverModem()
{
    if (model.simulatorPressed())
        console.Set_Simulator(true);
    console.Connect();
    EXPECT_TRUE(waitWhileBusy());
    EXPECT_EQ(session.COMPort.Status, 1);
}

void BusFixture::connectOverCable()
{
    if (!model.simulatorPressed())
        console.Set_Simulator(true);
    console.Connect();
    EXPECT_TRUE(waitWhileBusy());
    EXPECT_EQ(session.COMPort.Status, 1);
}

bool BusFixture::waitWhileBusy()
{
    return clock.runUntil([this] { return session.COMPort.Status != 2; }, 3600 * 1000);
}

bool BusFixture::waitFor(bus::ActionCode code, qint64 milliseconds)
{
    return clock.runUntil([this, code] { return bus.actionCode() == code; }, milliseconds);
}

void BusFixture::arrives(const QByteArray& bytes)
{
    port.feed(bytes);
    clock.settle();
}

void BusFixture::arrivesByteByByte(const QByteArray& bytes)
{
    for (const char byte : bytes)
        arrives(QByteArray(1, byte));
}

void BusFixture::connectByHand()
{
    if (!model.simulatorPressed())
        console.Set_Simulator(true);
    console.Connect();
    arrives("ATA");
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    mark();
}

void BusFixture::mark()
{
    marked_ = clock.elapsed();
    port.forgetSent();
    model.log().clear();
}

QStringList BusFixture::sent() const
{
    QStringList lines;
    std::optional<qint64> instant;
    for (const platform::MemorySerialPort::Sent& piece : port.sent()) {
        const QString text = readable(piece.bytes);
        if (instant == piece.at)
            lines.last() += QLatin1Char('|') + text;
        else
            lines << QStringLiteral("%1 %2").arg(piece.at - marked_).arg(text);
        instant = piece.at;
    }
    return lines;
}

QList<QByteArray> BusFixture::frames() const
{
    QList<QByteArray> all;
    for (const platform::MemorySerialPort::Sent& piece : port.sent())
        all << piece.bytes;
    return all;
}

QStringList BusFixture::logged()
{
    QStringList lines;
    for (int row = 0; row < model.log().rowCount(); ++row)
        lines << model.log().text(row, 1);
    return lines;
}

QStringList BusFixture::events() const
{
    return column(plantFile(),
                  QStringLiteral("SELECT IDType || '/' || Source || '/' || IfNull(Equipment, '-') || '/' || "
                                 "IfNull(Instrument, '-') || '/' || IfNull(Description, '-') FROM tbEvent"));
}

QStringList BusFixture::logLines() const
{
    QStringList lines;
    for (const QString& name : logFiles()) {
        platform::TextReader log(file(QStringLiteral("Log/") + name), session.CodePage);
        while (!log.AtEndOfStream())
            lines << log.ReadLine();
    }
    return lines;
}

QString descriptionOf(const QString& logLine)
{
    return logLine.mid(123).trimmed();
}

QString BusFixture::value(int IDGrp, int IDInst, const QString& IDPar) const
{
    return column(plantFile(),
                  QStringLiteral(
                      "SELECT Value FROM tbParametersUser WHERE IDGrp=%1 AND IDInst=%2 AND IDPar='%3'")
                      .arg(IDGrp)
                      .arg(IDInst)
                      .arg(IDPar))
        .value(0);
}

QString BusFixture::state(int IDGrp, int IDInst, const QString& IDPar) const
{
    return column(plantFile(),
                  QStringLiteral(
                      "SELECT State FROM tbParametersUser WHERE IDGrp=%1 AND IDInst=%2 AND IDPar='%3'")
                      .arg(IDGrp)
                      .arg(IDInst)
                      .arg(IDPar))
        .value(0);
}

QStringList BusFixture::logFiles() const
{
    return QDir(file(QStringLiteral("Log"))).entryList({QStringLiteral("*.log")}, QDir::Files, QDir::Name);
}

} // namespace support
