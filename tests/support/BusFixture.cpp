#include "support/BusFixture.h"

#include "instrument/CompanyFile.h"
#include "values/Cyrillic.h"

#include <QDir>

namespace support {

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
    values::Inizialize_RUChr();
    QDir(session.AppPath).mkpath(QStringLiteral("Log"));
    connectPlant();
    bus.Set_COMPort();
    bus.Open_COMConnection();
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
    session.ClipKey = key;
    console.load();
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

QStringList BusFixture::logged() const
{
    QStringList lines;
    auto& log = const_cast<console::ConsoleModel&>(model).log();
    for (int row = 0; row < log.rowCount(); ++row)
        lines << log.text(row, 1);
    return lines;
}

QStringList BusFixture::sentTexts() const
{
    QStringList texts;
    for (const platform::MemorySerialPort::Sent& piece : port.sent())
        texts << QString::fromLatin1(piece.bytes);
    return texts;
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
