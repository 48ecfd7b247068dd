#include "history/NoteFile.h"

#include "platform/RuntimeError.h"
#include "platform/SqlFailure.h"
#include "platform/Words.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace history {

namespace {

constexpr int kVersion = 1;
constexpr int kBusyMilliseconds = 50; // whoever holds the file costs the operator no more than this
constexpr int kSlice = 5000;

const char* const kSchema = R"(
    CREATE TABLE IF NOT EXISTS tbOperation (
      ID       INTEGER PRIMARY KEY,
      Time     INTEGER NOT NULL,
      Operator TEXT
    );
    CREATE TABLE IF NOT EXISTS tbNote (
      ID        INTEGER PRIMARY KEY,
      Operation INTEGER NOT NULL,
      Time      INTEGER NOT NULL,
      IDGrp     INTEGER NOT NULL,
      IDInst    INTEGER NOT NULL,
      IDPar     TEXT    NOT NULL COLLATE NOCASE,
      IDParGrp  TEXT COLLATE NOCASE,
      OldValue  TEXT,
      NewValue  TEXT,
      OldState  INTEGER,
      NewState  INTEGER,
      Cause     INTEGER NOT NULL
    );
    CREATE INDEX IF NOT EXISTS ixNote ON tbNote (IDGrp, IDInst, IDPar);
    PRAGMA user_version = 1;)";

SQLite::Database opened(const QString& file)
{
    try {
        return SQLite::Database(QFile::encodeName(file).toStdString(),
                                SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                kBusyMilliseconds);
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file);
    }
}

// Not copied: a note lives as long as the run of its statement.
void bind(sqlite3_stmt* statement, int place, const std::optional<QByteArrayView>& text)
{
    if (text)
        sqlite3_bind_text(statement, place, text->data(), int(text->size()), SQLITE_STATIC);
    else
        sqlite3_bind_null(statement, place);
}

void bind(sqlite3_stmt* statement, int place, const std::optional<int>& number)
{
    if (number)
        sqlite3_bind_int(statement, place, *number);
    else
        sqlite3_bind_null(statement, place);
}

} // namespace

QString historyFileOf(const QString& company)
{
    const QFileInfo file(company);
    return file.path() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".history");
}

template <class Work>
auto NoteFile::run(Work&& work)
{
    try {
        return work();
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file_);
    }
}

NoteFile::NoteFile(const QString& file) : file_(file), database_(opened(file))
{
    run([this] { prepare(); });
}

void NoteFile::prepare()
{
    // The same people as the company's; the engine gives the files beside it the same rights.
    if (QFileInfo(file_).size() == 0)
        QFile::setPermissions(file_, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    const int version = database_.execAndGet("PRAGMA user_version;").getInt();
    if (version > kVersion)
        platform::failInWords(platform::errors::kDatabase, "history.newer",
                              {QDir::toNativeSeparators(file_)});
    // A note is small: little pages keep small what a commit writes beside the company's own.
    if (version < kVersion)
        database_.exec("PRAGMA page_size=1024;");
    database_.exec("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA wal_autocheckpoint=4000;");
    if (version < kVersion)
        database_.exec(kSchema);
    addOperation_.emplace(database_, "INSERT INTO tbOperation (Time, Operator) VALUES (?, ?);");
    static const char* const kAdd = R"(
        INSERT INTO tbNote (Operation, Time, IDGrp, IDInst, IDPar, IDParGrp, OldValue, NewValue, OldState,
                            NewState, Cause)
        VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?);)";
    sqlite3_stmt* add = nullptr;
    const int outcome = sqlite3_prepare_v2(database_.getHandle(), kAdd, -1, &add, nullptr);
    add_.reset(add);
    if (outcome != SQLITE_OK)
        throw SQLite::Exception(database_.getHandle(), outcome);
}

void NoteFile::begin()
{
    run([this] { database_.exec("BEGIN IMMEDIATE;"); });
}

void NoteFile::commit()
{
    run([this] { database_.exec("COMMIT;"); });
}

void NoteFile::beginPart()
{
    run([this] { database_.exec("SAVEPOINT part;"); });
}

void NoteFile::keepPart()
{
    run([this] { database_.exec("RELEASE part;"); });
}

void NoteFile::undoPart()
{
    run([this] { database_.exec("ROLLBACK TO part; RELEASE part;"); });
}

bool NoteFile::inTransaction() const
{
    return sqlite3_get_autocommit(database_.getHandle()) == 0;
}

qint64 NoteFile::addOperation(qint64 time, const QString& operatorName)
{
    return run([&] {
        addOperation_->reset();
        addOperation_->bind(1, std::int64_t(time));
        addOperation_->bind(2, operatorName.toStdString());
        addOperation_->exec();
        addOperation_->reset();
        return qint64(database_.getLastInsertRowid());
    });
}

qint64 NoteFile::add(const NewNote& note)
{
    return run([&] {
        sqlite3_stmt* const statement = add_.get();
        sqlite3_bind_int64(statement, 1, note.operation);
        sqlite3_bind_int64(statement, 2, note.time);
        sqlite3_bind_int64(statement, 3, note.IDGrp);
        sqlite3_bind_int64(statement, 4, note.IDInst);
        bind(statement, 5, note.IDPar);
        bind(statement, 6, note.IDParGrp);
        bind(statement, 7, note.oldValue);
        bind(statement, 8, note.newValue);
        bind(statement, 9, note.oldState);
        bind(statement, 10, note.newState);
        sqlite3_bind_int(statement, 11, int(note.cause));
        const int outcome = sqlite3_step(statement);
        sqlite3_reset(statement);
        if (outcome != SQLITE_DONE)
            throw SQLite::Exception(database_.getHandle(), outcome);
        return qint64(database_.getLastInsertRowid());
    });
}

void NoteFile::removeFrom(qint64 number)
{
    run([&] {
        SQLite::Statement remove(database_, "DELETE FROM tbNote WHERE ID >= ?;");
        remove.bind(1, std::int64_t(number));
        return remove.exec();
    });
}

bool NoteFile::removeOlder(qint64 time)
{
    return run([&] {
        SQLite::Statement notes(database_, R"(
            DELETE FROM tbNote
            WHERE (ID < (SELECT Min(ID) FROM tbNote) + ?) AND (Time < ?);)");
        notes.bind(1, kSlice);
        notes.bind(2, std::int64_t(time));
        if (notes.exec() > 0)
            return true;
        SQLite::Statement operations(database_, R"(
            DELETE FROM tbOperation
            WHERE (Time < ?) AND (ID < IfNull((SELECT Min(Operation) FROM tbNote), ID + 1));)");
        operations.bind(1, std::int64_t(time));
        operations.exec();
        return false;
    });
}

} // namespace history
