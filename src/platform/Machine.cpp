#include "platform/Machine.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QSysInfo>

namespace platform {

namespace {

// The text behind the colon of the first line that begins with `key`, in a file such as /proc/cpuinfo.
QString procValue(const QString& path, const QString& key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // These files have no size: they are read up to an empty line.
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        const QString text = QString::fromUtf8(line);
        if (text.startsWith(key) && text.contains(QLatin1Char(':')))
            return text.section(QLatin1Char(':'), 1).trimmed();
    }
    return {};
}

qint64 memoryInKb(const QString& key)
{
    const QString value = procValue(QStringLiteral("/proc/meminfo"), key + QLatin1Char(':'));
    return value.section(QLatin1Char(' '), 0, 0).toLongLong();
}

QString nearestExisting(const QString& path)
{
    QString folder = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo::exists(folder)) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder)
            break;
        folder = parent;
    }
    return folder;
}

} // namespace

Memory Machine::memory() const
{
    Memory memory;
    memory.totalPhysical = memoryInKb(QStringLiteral("MemTotal"));
    memory.availablePhysical = memoryInKb(QStringLiteral("MemAvailable"));
    memory.totalVirtual = memory.totalPhysical + memoryInKb(QStringLiteral("SwapTotal"));
    memory.availableVirtual = memory.availablePhysical + memoryInKb(QStringLiteral("SwapFree"));
    return memory;
}

QString Machine::osName() const
{
    return QSysInfo::prettyProductName();
}

QString Machine::osRelease() const
{
    return QSysInfo::kernelVersion();
}

QString Machine::cpuName() const
{
    return procValue(QStringLiteral("/proc/cpuinfo"), QStringLiteral("model name"));
}

QString Machine::desktop() const
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

FileSystem Machine::fileSystemOf(const QString& path) const
{
    const QStorageInfo storage(nearestExisting(path));
    if (!storage.isValid() || !storage.isReady())
        fail(errors::kPathNotFound, QStringLiteral("No file system holds '%1'.").arg(path));
    return {storage.rootPath(), storage.bytesAvailable(), storage.bytesTotal()};
}

} // namespace platform
