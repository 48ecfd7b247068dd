#include "database/DurableFile.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace database {

namespace {

constexpr QFile::Permissions kRights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;

[[noreturn]] void failOnName(const QString& path, const std::error_code& error)
{
    const bool full = error == std::errc::no_space_on_device || error == std::errc::file_too_large;
    platform::fail(full ? platform::errors::kDiskFull : platform::errors::kPermissionDenied,
                   QStringLiteral("'%1': %2")
                       .arg(QDir::toNativeSeparators(path), QString::fromStdString(error.message())));
}

bool sync(int descriptor)
{
#ifdef Q_OS_WIN
    return _commit(descriptor) == 0;
#else
    // A file system that knows no such thing as a disk has nothing to flush.
    return fsync(descriptor) == 0 || errno == EINVAL || errno == EROFS;
#endif
}

} // namespace

QString partOf(const QString& target)
{
    return target + QStringLiteral(".part");
}

QString placeOf(const QString& target)
{
    const QFileInfo file(target);
    if (!file.isSymLink())
        return target;
    return file.exists() ? file.canonicalFilePath() : file.symLinkTarget();
}

void failOnFile(const QString& path, const QFileDevice& file)
{
    const bool full = file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    platform::fail(full ? platform::errors::kDiskFull : platform::errors::kPermissionDenied,
                   QStringLiteral("'%1': %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

void flushToDisk(QFileDevice& file)
{
    if (!file.isOpen() || !file.flush())
        failOnFile(file.fileName(), file);
    if (!sync(file.handle()))
        failOnName(file.fileName(), {errno, std::generic_category()});
}

void takePlace(const QString& part, const QString& target)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(part).filesystemFilePath(), QFileInfo(target).filesystemFilePath(),
                            error);
    if (error)
        failOnName(target, error);
}

void flushFolderOf(const QString& file)
{
#ifdef Q_OS_WIN
    Q_UNUSED(file); // the rename itself is written through
#else
    const QByteArray folder = QFile::encodeName(QFileInfo(file).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool flushed = descriptor >= 0 && sync(descriptor);
    const int reason = errno;
    if (descriptor >= 0)
        close(descriptor);
    if (!flushed)
        failOnName(QFileInfo(file).absolutePath(), {reason, std::generic_category()});
#endif
}

void restrictRights(const QString& file)
{
    QFile::setPermissions(file, kRights);
}

} // namespace database
