#include "platform/SerialPort.h"

#include "platform/Words.h"

#include <QStringList>

namespace platform {

namespace {

const QStringList kStopBits{QStringLiteral("1"), QStringLiteral("1.5"), QStringLiteral("2")};

} // namespace

void SerialPort::setSettings(const QString& settings)
{
    LineSettings::parse(settings);
    settings_ = settings;
}

void SerialPort::setHandshaking(int value)
{
    if (value < 0 || value > 3)
        failInWords(errors::kInvalidCall, "port.handshaking", {QString::number(value)});
    handshaking_ = value;
}

LineSettings LineSettings::parse(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    bool speedOk = false;
    bool bitsOk = false;
    LineSettings line;
    if (parts.size() == 4) {
        line.speed = parts[0].toInt(&speedOk);
        line.parity = parts[1].size() == 1 ? parts[1][0].toLatin1() : '?';
        line.dataBits = parts[2].toInt(&bitsOk);
        line.stopBits = parts[3];
    }
    if (!speedOk || !bitsOk || !QByteArray("EONMS").contains(line.parity) ||
        !kStopBits.contains(line.stopBits))
        failInWords(errors::kInvalidCall, "port.settings", {text});
    return line;
}

} // namespace platform
