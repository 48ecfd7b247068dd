#include "database/FileCopy.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace database {

namespace {

constexpr qint64 kChunk = 1 << 20;

[[noreturn]] void failOnFile(const QString& path, const QFileDevice& file)
{
    const bool full = file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    platform::fail(full ? platform::errors::kDiskFull : platform::errors::kPermissionDenied,
                   QStringLiteral("'%1': %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

void removeJournals(const QString& path)
{
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        QFile journal(path + QLatin1String(suffix));
        if (journal.exists() && !journal.remove())
            failOnFile(journal.fileName(), journal);
    }
}

} // namespace

void copyDatabaseFile(const QString& source, const QString& target)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        failOnFile(source, from);
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly))
        failOnFile(target, to);
    while (!from.atEnd()) {
        const QByteArray chunk = from.read(kChunk);
        if (from.error() != QFileDevice::NoError)
            failOnFile(source, from);
        if (to.write(chunk) != chunk.size())
            failOnFile(target, to);
    }
    // The commit itself doesn't tell that its own last write failed: a full disk must show here.
    if (!to.flush())
        failOnFile(target, to);
    // Before the new file takes its place, never after: a journal of the old one must not be played into it.
    removeJournals(target);
    if (!to.commit())
        failOnFile(target, to);
}

} // namespace database
