#include "platform/Machine.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QSysInfo>
#include <sys/stat.h>
#include <sys/statvfs.h>

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

std::optional<dev_t> deviceOf(const QString& path)
{
    struct stat entry;
    return stat(QFile::encodeName(path).constData(), &entry) == 0 ? std::optional(entry.st_dev)
                                                                  : std::nullopt;
}

// The highest folder that still lies on the path's device.
QString topOfDevice(const QString& path)
{
    QString top = path;
    for (QString above = QFileInfo(top).path(); above != top && deviceOf(above) == deviceOf(path);
         above = QFileInfo(top).path())
        top = above;
    return top;
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
    const QString folder = nearestExisting(path);
    if (const auto mounted = mountedFileSystemOf(folder))
        return *mounted;
    struct statvfs sizes;
    if (statvfs(QFile::encodeName(folder).constData(), &sizes) != 0)
        fail(errors::kPathNotFound, QStringLiteral("No file system holds '%1'.").arg(path));
    return {topOfDevice(folder), qint64(sizes.f_bavail) * qint64(sizes.f_frsize),
            qint64(sizes.f_blocks) * qint64(sizes.f_frsize)};
}

std::optional<FileSystem> Machine::mountedFileSystemOf(const QString& path) const
{
    const QStorageInfo storage(path);
    if (!storage.isValid() || !storage.isReady())
        return std::nullopt;
    return FileSystem{storage.rootPath(), storage.bytesAvailable(), storage.bytesTotal()};
}

QString localeOfMachine()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

} // namespace platform
