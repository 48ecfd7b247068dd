#include "events/LogFile.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>
#include <unistd.h>

namespace events {

namespace errors = platform::errors;

LogFile::LogFile(const QString& path) : path_(path), file_(path + QStringLiteral(".part"))
{
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        failWithFile(QFileInfo(path).dir().exists() ? errors::kPermissionDenied : errors::kPathNotFound);
}

LogFile::~LogFile()
{
    file_.remove();
}

void LogFile::append(const QByteArray& line)
{
    const qint64 whole = file_.pos();
    if (file_.write(line) != line.size()) {
        file_.resize(whole);
        failWithFile(errors::kDiskFull);
    }
    ++lines_;
}

int LogFile::putInPlace()
{
    if (lines_ == 0)
        return 0;
    if (fsync(file_.handle()) != 0)
        failWithFile(errors::kDiskFull);
    std::error_code failed;
    std::filesystem::rename(file_.filesystemFileName(), QFileInfo(path_).filesystemFilePath(), failed);
    if (failed)
        failWithFile(errors::kPermissionDenied);
    return lines_;
}

void LogFile::failWithFile(int number) const
{
    platform::fail(number,
                   QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path_), file_.errorString()));
}

} // namespace events
