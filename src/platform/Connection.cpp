#include "platform/Connection.h"

#include "platform/OnlineBackup.h"
#include "platform/RuntimeError.h"
#include "platform/SqlFailure.h"
#include "platform/SqlFunctions.h"
#include "platform/Words.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace platform {

namespace {

constexpr int kBusyMilliseconds = 500;
constexpr int kReaderBusyMilliseconds = 2000;
// A connection stays in the thread that opened it: the engine needn't lock itself at every field.
constexpr int kReadWriteFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
constexpr int kReadOnlyFlags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
// The engine's own small pieces of memory, enough for what it keeps prepared and one large statement on top.
constexpr int kLookasideBytes = 1200;
constexpr int kLookasideSlots = 1000;
constexpr int kPreparedStatements = 128;

QString wordsFor(const SQLite::Exception& exception, const QString& path)
{
    const QString file = QDir::toNativeSeparators(path);
    switch (exception.getErrorCode()) {
    case SQLITE_NOTADB:
        return inWords("file.notdatabase", {file});
    case SQLITE_CORRUPT:
        return inWords("file.damaged", {file});
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return inWords("file.locked", {file});
    case SQLITE_READONLY:
        return inWords("file.readonly", {file});
    case SQLITE_FULL:
        return inWords("file.diskfull", {file});
    case SQLITE_CANTOPEN:
        return inWords("file.cantopen", {file});
    default:
        return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(exception.what()), file);
    }
}

int numberFor(const SQLite::Exception& exception)
{
    switch (exception.getErrorCode()) {
    case SQLITE_FULL:
        return errors::kDiskFull;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return errors::kDamaged;
    default:
        return errors::kDatabase;
    }
}

std::unique_ptr<SQLite::Database> opened(const QByteArray& name, int flags, int busyMilliseconds)
{
    auto database = std::make_unique<SQLite::Database>(name.toStdString(), flags, busyMilliseconds);
    sqlite3_db_config(database->getHandle(), SQLITE_DBCONFIG_LOOKASIDE, nullptr, kLookasideBytes,
                      kLookasideSlots);
    database->exec("PRAGMA foreign_keys=ON; PRAGMA synchronous=FULL;");
    database->exec("SELECT Count(*) FROM sqlite_master;");
    return database;
}

// A file that is written with a log beside it wants that log even to be read, and in a folder that may not be
// written it can't be had. Where there is none nobody is writing.
std::unique_ptr<SQLite::Database> openedForReading(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    try {
        return opened(name, kReadOnlyFlags, kReaderBusyMilliseconds);
    } catch (const SQLite::Exception& exception) {
        const bool forWantOfALog =
            exception.getErrorCode() == SQLITE_CANTOPEN || exception.getErrorCode() == SQLITE_READONLY;
        if (!forWantOfALog || QFile::exists(path + QStringLiteral("-wal")))
            throw;
        return opened("file:" + name.toPercentEncoding("/") + "?immutable=1",
                      kReadOnlyFlags | SQLITE_OPEN_URI, kReaderBusyMilliseconds);
    }
}

} // namespace

void failWithSql(const SQLite::Exception& exception, const QString& path)
{
    fail(numberFor(exception), wordsFor(exception, path));
}

Connection::Connection() : prepared_(kPreparedStatements) {}

Connection::~Connection()
{
    Close();
}

void Connection::Open(const QString& file, Access access)
{
    const bool readOnly = access == Access::ReadOnly;
    if (database_)
        fail(errors::kInvalidCall, QStringLiteral("The connection is open already."));
    path_ = QDir::fromNativeSeparators(file);
    if (!QFileInfo(path_).isFile())
        failInWords(errors::kFileNotFound, "file.missing", {QDir::toNativeSeparators(path_)});
    try {
        auto database = readOnly ? openedForReading(path_)
                                 : opened(QFile::encodeName(path_), kReadWriteFlags, kBusyMilliseconds);
        if (!readOnly)
            database->exec("PRAGMA journal_mode=DELETE;");
        addSqlFunctions(*database);
        database_ = std::move(database);
        listen();
    } catch (const SQLite::Exception& exception) {
        failWithSql(exception, path_);
    }
}

bool Connection::Close()
{
    if (backup_)
        backup_->abandon();
    prepared_.clear();
    const bool inUse = database_ && sqlite3_next_stmt(database_->getHandle(), nullptr);
    if (!inUse && database_) {
        database_.reset();
        if (watcher_)
            watcher_->closing();
    }
    return !inUse;
}

int Connection::State() const
{
    return database_ ? Opened : Closed;
}

int Connection::Execute(const QString& sql)
{
    SQLite::Database& engine = database();
    if (watcher_)
        watcher_->statementBegins();
    try {
        const int changed = engine.exec(sql.toStdString());
        settle(true);
        return changed;
    } catch (const SQLite::Exception& exception) {
        settle(false);
        failWithSql(exception, path_);
    }
}

void Connection::BeginTrans()
{
    Execute(QStringLiteral("BEGIN IMMEDIATE;"));
}

void Connection::CommitTrans()
{
    Execute(QStringLiteral("COMMIT;"));
}

void Connection::RollbackTrans()
{
    Execute(QStringLiteral("ROLLBACK;"));
}

bool Connection::inTransaction() const
{
    return sqlite3_get_autocommit(database().getHandle()) == 0;
}

SQLite::Database& Connection::database() const
{
    if (!database_)
        fail(errors::kObjectClosed, QStringLiteral("Operation is not allowed when the object is closed."));
    return *database_;
}

PreparedStatement Connection::prepare(const QString& sql) const
{
    sqlite3* const engine = database().getHandle();
    if (const std::unique_ptr<PreparedStatement> kept(prepared_.take(sql)); kept)
        return std::move(*kept);
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const int outcome =
        sqlite3_prepare_v2(engine, text.constData(), int(text.size()) + 1, &statement, nullptr);
    PreparedStatement prepared(statement);
    if (outcome != SQLITE_OK)
        failAs(outcome);
    if (!prepared)
        fail(errors::kDatabase, QStringLiteral("The statement is empty."));
    return prepared;
}

void Connection::keep(const QString& sql, PreparedStatement statement) const
{
    prepared_.insert(sql, new PreparedStatement(std::move(statement)));
}

void Connection::failAs(int engineCode) const
{
    failWithSql(SQLite::Exception(database().getHandle(), engineCode), path_);
}

Transaction::Transaction(Connection& connection) : connection_(connection)
{
    connection_.BeginTrans();
}

Transaction::~Transaction()
{
    if (!open_)
        return;
    try {
        connection_.RollbackTrans();
    } catch (const RuntimeError&) {
        // The engine has rolled back by itself (a full disk does that): nothing is left to undo.
    }
}

void Transaction::commit()
{
    connection_.CommitTrans();
    open_ = false;
}

Snapshot::Snapshot(Connection& connection) : connection_(connection)
{
    connection_.Execute(QStringLiteral("SAVEPOINT snapshot;"));
}

Snapshot::~Snapshot()
{
    try {
        connection_.Execute(QStringLiteral("RELEASE snapshot;"));
    } catch (const RuntimeError&) {
        // Closed or rolled back meanwhile: there is nothing left to let go.
    }
}

} // namespace platform
