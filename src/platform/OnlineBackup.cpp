#include "platform/OnlineBackup.h"

#include "platform/Connection.h"
#include "platform/SqlFailure.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>
#include <utility>

namespace platform {

OnlineBackup::OnlineBackup(Connection& source, const QString& target) : target_(target), source_(&source)
{
    try {
        copy_ = std::make_unique<SQLite::Database>(QFile::encodeName(target).toStdString(),
                                                   SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        copy_->exec("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;");
        backup_ = sqlite3_backup_init(copy_->getHandle(), "main", source.database().getHandle(), "main");
        if (!backup_)
            throw SQLite::Exception(copy_->getHandle());
    } catch (const SQLite::Exception& exception) {
        failWithSql(exception, target_);
    }
    source_->attend(this);
}

OnlineBackup::~OnlineBackup()
{
    abandon();
}

bool OnlineBackup::step(int pages)
{
    if (!backup_)
        return false;
    const int outcome = sqlite3_backup_step(backup_, pages);
    if (outcome == SQLITE_OK || outcome == SQLITE_BUSY || outcome == SQLITE_LOCKED)
        return false;
    if (outcome != SQLITE_DONE) {
        abandon();
        failWithSql(SQLite::Exception(sqlite3_errstr(outcome), outcome), target_);
    }
    end();
    return true;
}

void OnlineBackup::abandon()
{
    end();
    if (Connection* source = std::exchange(source_, nullptr))
        source->attend(nullptr);
}

void OnlineBackup::end()
{
    if (backup_)
        sqlite3_backup_finish(std::exchange(backup_, nullptr));
    copy_.reset();
}

} // namespace platform
