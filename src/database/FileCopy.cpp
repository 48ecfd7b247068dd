#include "database/FileCopy.h"

#include "database/DurableFile.h"
#include "platform/RuntimeError.h"
#include "platform/SqlFailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>
#include <array>
#include <filesystem>
#include <sqlite3.h>

namespace database {

namespace {

constexpr qint64 kChunk = 1 << 20;
constexpr std::array kSideFiles{"-journal", "-wal", "-shm"};

// The file beside the target while it is written; what is not put in its place goes again.
class Part
{
public:
    explicit Part(const QString& target) : file_(partOf(target))
    {
        QFile::remove(file_.fileName()); // a killed program's
        if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            failOnFile(file_.fileName(), file_);
    }
    ~Part()
    {
        if (!placed_)
            file_.remove();
    }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    QString name() const { return file_.fileName(); }

    void write(const QByteArray& bytes)
    {
        // A disk that fills up takes a part at first; the next attempt tells the reason.
        for (qsizetype done = 0; done < bytes.size();) {
            const qint64 taken = file_.write(bytes.constData() + done, bytes.size() - done);
            if (taken <= 0)
                failOnFile(file_.fileName(), file_);
            done += taken;
        }
    }

    void complete()
    {
        flushToDisk(file_);
        file_.close();
    }

    void take(const QString& target)
    {
        takePlace(name(), target);
        placed_ = true;
    }

private:
    QFile file_;
    bool placed_ = false;
};

void pump(QFile& from, Part& to, const CopyOptions& options)
{
    const qint64 total = from.size();
    qint64 done = 0;
    const auto tell = [&] {
        if (options.progress)
            options.progress(done, total);
    };
    tell();
    for (QByteArray chunk = from.read(kChunk); !chunk.isEmpty(); chunk = from.read(kChunk)) {
        to.write(chunk);
        done += chunk.size();
        tell();
    }
    if (from.error() != QFileDevice::NoError)
        failOnFile(from.fileName(), from);
}

// Undoes what was begun in a database file and not completed. A file that can't be opened as a database has
// nothing that a journal could give back.
void settle(const QString& path)
{
    if (!QFileInfo::exists(path) || !hasSideFiles(path))
        return;
    try {
        SQLite::Database engine(QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE);
        engine.exec("SELECT Count(*) FROM sqlite_master;");
    } catch (const SQLite::Exception& exception) {
        if (exception.getErrorCode() == SQLITE_BUSY || exception.getErrorCode() == SQLITE_LOCKED)
            platform::failWithSql(exception, path);
    }
}

void removeSideFiles(const QString& path)
{
    for (const char* suffix : kSideFiles) {
        QFile side(path + QLatin1String(suffix));
        if (side.exists() && !side.remove())
            failOnFile(side.fileName(), side);
    }
}

// Whoever may write into a folder may replace what is in it; what was made read-only is meant to stay.
void refuseUnwritable(const QString& target)
{
    QFile file(target);
    if (file.exists() && !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        failOnFile(target, file);
}

// A second name for the same file costs nothing; where the file system knows no such thing, a copy does it.
void keep(const QString& path, const QString& name)
{
    std::error_code error;
    std::filesystem::create_hard_link(QFileInfo(path).filesystemFilePath(),
                                      QFileInfo(name).filesystemFilePath(), error);
    if (error)
        copyDatabaseFile(path, name);
}

} // namespace

bool hasSideFiles(const QString& file)
{
    return std::any_of(kSideFiles.begin(), kSideFiles.end(),
                       [&](const char* suffix) { return QFile::exists(file + QLatin1String(suffix)); });
}

void copyDatabaseFile(const QString& source, const QString& target, const CopyOptions& options)
{
    const QString place = placeOf(target);
    refuseUnwritable(place);
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        failOnFile(source, from);
    Part to(place);
    pump(from, to, options);
    to.complete();
    restrictRights(to.name());
    if (options.check)
        options.check(to.name());
    settle(place);
    if (!options.keepAs.isEmpty() && QFileInfo::exists(place))
        keep(place, options.keepAs);
    to.take(place);
    removeSideFiles(place);
    flushFolderOf(place);
}

} // namespace database
