#include "platform/SerialPort.h"

#include <QStringList>

namespace platform {

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
    if (!speedOk || !bitsOk || !QByteArray("EONMS").contains(line.parity))
        fail(errors::kInvalidCall, QStringLiteral("The line settings '%1' are not valid.").arg(text));
    return line;
}

} // namespace platform
