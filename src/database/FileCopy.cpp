#include "database/FileCopy.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <algorithm>

namespace database {

namespace {

constexpr qint64 kChunk = 1 << 20;
constexpr QFile::Permissions kCompanyRights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
const char* const kJournals[] = {"-journal", "-wal", "-shm"};

[[noreturn]] void failOnFile(const QString& path, const QFileDevice& file)
{
    const bool full = file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    platform::fail(full ? platform::errors::kDiskFull : platform::errors::kPermissionDenied,
                   QStringLiteral("'%1': %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

// What an interrupted program left beside a company is played into it, so that it stands whole without. A
// file that is no company stays as it is.
void settleJournals(const QString& path)
{
    const bool any = std::any_of(std::begin(kJournals), std::end(kJournals), [&](const char* suffix) {
        return QFile::exists(path + QLatin1String(suffix));
    });
    if (!any)
        return;
    try {
        platform::Connection().Open(path);
    } catch (const platform::RuntimeError&) {
    }
}

void removeJournals(const QString& path)
{
    for (const char* suffix : kJournals) {
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
    to.setPermissions(kCompanyRights);
    // Not a moment may the new file stand beside a journal of the old one that can be played into it; and
    // until the new one has its place, the old one needs its journal.
    settleJournals(target);
    if (!to.commit())
        failOnFile(target, to);
    removeJournals(target);
}

} // namespace database
