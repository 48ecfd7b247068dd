#include "platform/Ports.h"

#include <QFileInfo>

namespace platform {

QString deviceOfPort(const QString& applicationPath, int number)
{
#ifdef Q_OS_WIN
    Q_UNUSED(applicationPath);
    return QStringLiteral("COM%1").arg(number);
#else
    // A dangling link counts: it names a device that is missing, and opening says so.
    const QFileInfo link(applicationPath + QStringLiteral("/ports/COM%1").arg(number));
    if (link.isSymLink() || link.exists())
        return link.filePath();
    if (number >= 1 && number <= 4)
        return QStringLiteral("/dev/ttyS%1").arg(number - 1);
    if (number >= 5 && number <= 10)
        return QStringLiteral("/dev/ttyUSB%1").arg(number - 5);
    if (number >= 11 && number <= 16)
        return QStringLiteral("/dev/ttyACM%1").arg(number - 11);
    return {};
#endif
}

} // namespace platform
