// The hook before an update is the one that tells of tables without row ids, and what stood there.
#define SQLITE_ENABLE_PREUPDATE_HOOK

#include "platform/ChangeWatcher.h"

#include "platform/Connection.h"
#include "platform/Unwatched.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <cstring>
#include <sqlite3.h>

namespace platform {

namespace {

qint64 integerOf(sqlite3_value* value)
{
    return value ? sqlite3_value_int64(value) : 0;
}

std::optional<QByteArrayView> textOf(sqlite3_value* value)
{
    if (!value || sqlite3_value_type(value) == SQLITE_NULL)
        return std::nullopt;
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QByteArrayView(text, qsizetype(sqlite3_value_bytes(value)));
}

// A file that is attached has tables of the same names.
void tell(void* watching, sqlite3* engine, int operation, const char* database, const char* table,
          sqlite3_int64, sqlite3_int64)
{
    auto& watcher = *static_cast<ChangeWatcher*>(watching);
    if (std::strcmp(table, watcher.table()) != 0 || std::strcmp(database, "main") != 0)
        return;
    const auto kind = operation == SQLITE_INSERT   ? RowChange::Kind::Inserted
                      : operation == SQLITE_DELETE ? RowChange::Kind::Deleted
                                                   : RowChange::Kind::Updated;
    watcher.changed(RowChange(engine, kind));
}

void tellUndone(void* watching)
{
    static_cast<ChangeWatcher*>(watching)->undone();
}

} // namespace

void Connection::watch(ChangeWatcher* watcher)
{
    watcher_ = watcher;
    if (database_)
        listen();
}

void Connection::listen()
{
    sqlite3* const engine = database_->getHandle();
    sqlite3_preupdate_hook(engine, watcher_ ? tell : nullptr, watcher_);
    sqlite3_rollback_hook(engine, watcher_ ? tellUndone : nullptr, watcher_);
    if (watcher_)
        watcher_->opened(*this, path_);
}

void Connection::settle(bool done) noexcept
{
    if (!watcher_)
        return;
    if (!done)
        watcher_->statementFailed();
    if (sqlite3_get_autocommit(database_->getHandle()) == 0)
        return;
    if (done)
        watcher_->kept();
    else
        watcher_->undone();
}

sqlite3_value* RowChange::former(int column) const
{
    sqlite3_value* value = nullptr;
    if (kind != Kind::Inserted)
        sqlite3_preupdate_old(engine_, column, &value);
    return value;
}

sqlite3_value* RowChange::coming(int column) const
{
    sqlite3_value* value = nullptr;
    if (kind != Kind::Deleted)
        sqlite3_preupdate_new(engine_, column, &value);
    return value;
}

qint64 RowChange::formerInteger(int column) const
{
    return integerOf(former(column));
}

qint64 RowChange::newInteger(int column) const
{
    return integerOf(coming(column));
}

std::optional<QByteArrayView> RowChange::formerText(int column) const
{
    return textOf(former(column));
}

std::optional<QByteArrayView> RowChange::newText(int column) const
{
    return textOf(coming(column));
}

Unwatched::Unwatched(const Connection& connection)
    : connection_(connection),
      watcher_(sqlite3_preupdate_hook(connection.database().getHandle(), nullptr, nullptr))
{
}

Unwatched::~Unwatched()
{
    if (watcher_)
        sqlite3_preupdate_hook(connection_.database().getHandle(), tell, watcher_);
}

Purpose::Purpose(Connection& connection, int purpose) : connection_(connection), former_(connection.purpose_)
{
    ++connection_.purposes_;
    connection_.purpose_ = purpose;
}

Purpose::~Purpose()
{
    connection_.purpose_ = former_;
    if (--connection_.purposes_ == 0 && connection_.watcher_)
        connection_.watcher_->jobEnded();
}

} // namespace platform
