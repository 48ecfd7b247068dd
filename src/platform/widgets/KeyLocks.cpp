#include "platform/widgets/KeyLocks.h"

#include <QDir>
#include <QFile>

namespace platform {

bool keyLockOn(const QString& lock)
{
    // Qt knows key presses only; the state itself is a light that the system lists.
    const QDir lights("/sys/class/leds");
    for (const QString& light : lights.entryList({"*::" + lock}, QDir::AllEntries | QDir::NoDotAndDotDot)) {
        QFile brightness(lights.filePath(light) + "/brightness");
        if (brightness.open(QIODevice::ReadOnly) && brightness.readAll().trimmed() != "0")
            return true;
    }
    return false;
}

} // namespace platform
