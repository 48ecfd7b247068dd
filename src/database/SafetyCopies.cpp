#include "database/SafetyCopies.h"

#include "database/CompanyCopies.h"
#include "database/DurableFile.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace database {

using platform::guarded;

namespace {

// Half a megabyte every so many milliseconds: too little to be felt while the operator works or a frame
// waits.
constexpr int kPages = 128;
constexpr int kInterval = 50;
// What has gathered is brought to the disk now and then, lest the end must wait for all of it.
constexpr int kStepsToFlush = 8;
constexpr qint64 kDaySeconds = 24 * 60 * 60;

void flush(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        failOnFile(path, file);
    flushToDisk(file);
}

// A copy bears the time of the company's last change: while both have it, and the same size, they are the
// same.
bool isUnchangedSince(const QString& copy, const QString& company)
{
    const QFileInfo one(copy), other(company);
    return one.lastModified() == other.lastModified() && one.size() == other.size();
}

// Parts that a killed program left behind.
void removeParts(const QString& company)
{
    const QDir files(safetyFolder(company));
    const QString base = baseName(QFileInfo(company).fileName());
    for (const QString& part : files.entryList({QStringLiteral("*.bak.part")}, QDir::Files)) {
        if (part.startsWith(base + u'_'))
            QFile::remove(files.filePath(part));
    }
}

} // namespace

SafetyCopies::SafetyCopies(session::Session& session, platform::Clock& clock)
    : session_(session), clock_(clock), tmrSafety_(clock.makeTimer())
{
    tmrSafety_->onTick = [this] { proceed(); };
}

SafetyCopies::~SafetyCopies()
{
    drop();
}

void SafetyCopies::companyOpened()
{
    guarded("Module/Make_SafetyCopy", [&] {
        drop();
        company_ = session_.dbFile();
        if (!session::Exist_Path(safetyFolder(company_)))
            return;
        removeParts(company_);
        if (isDue())
            begin();
    });
}

// A copy of a time to come was made while the clock stood wrong: it says nothing about today.
bool SafetyCopies::isDue() const
{
    const QDateTime now = clock_.now();
    const QStringList copies = safetyCopies(company_);
    const auto newest = std::find_if(copies.rbegin(), copies.rend(),
                                     [&](const QString& copy) { return timeOfSafetyCopy(copy) <= now; });
    if (newest == copies.rend())
        return true;
    return timeOfSafetyCopy(*newest).secsTo(now) > kDaySeconds && !isUnchangedSince(*newest, company_);
}

void SafetyCopies::begin()
{
    target_ = safetyName(company_, clock_.now());
    backup_ = std::make_unique<platform::OnlineBackup>(session_.cnDatabase, partOf(target_));
    steps_ = 0;
    tmrSafety_->start(kInterval);
}

void SafetyCopies::proceed()
{
    tmrSafety_->stop();
    const bool well = guarded("Module/Make_SafetyCopy", [&] {
        if (!backup_ || backup_->isAbandoned()) {
            drop();
        } else if (backup_->step(kPages)) {
            complete();
        } else {
            if (++steps_ % kStepsToFlush == 0)
                flush(partOf(target_));
            tmrSafety_->start(kInterval);
        }
        return true;
    });
    if (!well)
        drop();
}

void SafetyCopies::complete()
{
    const QString part = partOf(target_);
    backup_.reset();
    restrictRights(part);
    QFile copy(part);
    if (!copy.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        failOnFile(part, copy);
    copy.setFileTime(QFileInfo(company_).lastModified(), QFileDevice::FileModificationTime);
    flushToDisk(copy);
    copy.close();
    takePlace(part, target_);
    flushFolderOf(target_);
    const QStringList copies = safetyCopies(company_);
    for (qsizetype i = 0; i + kKept < copies.size(); ++i)
        QFile::remove(copies[i]);
    emit made(target_);
}

void SafetyCopies::drop()
{
    tmrSafety_->stop();
    if (!backup_)
        return;
    backup_.reset();
    QFile::remove(partOf(target_));
}

} // namespace database
