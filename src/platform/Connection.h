#pragma once

#include "platform/ChangeWatcher.h"
#include "platform/Statement.h"

#include <QCache>
#include <QString>
#include <memory>

namespace SQLite {
class Database;
}

namespace platform {

class OnlineBackup;

// The connection on one database file. Every failure is a RuntimeError with the engine's words and the file's
// name.
//
// Opening never makes a file: a path that does not exist fails, and a file that is no database fails at once,
// because the first statement runs inside Open.
class Connection
{
public:
    enum State
    {
        Closed = 0,
        Opened = 1
    };

    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // A connection that only reads lets writers pass, and waits longer for them.
    enum class Access
    {
        ReadWrite,
        ReadOnly
    };

    // `file` is the whole name of the database file.
    void Open(const QString& file, Access access = Access::ReadWrite);
    // True when it is closed. While a statement of it still runs it stays open.
    bool Close();
    int State() const;

    // Runs one statement without a result; returns the number of rows that it changed.
    int Execute(const QString& sql);

    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    // False also when the engine has ended one by itself, as it does on a full disk.
    bool inTransaction() const;

    // The engine's own handle. Fails when the connection is closed.
    SQLite::Database& database() const;

    // A copy of the file that is under way; it is abandoned before the connection closes. Null when it has
    // ended.
    void attend(OnlineBackup* backup) { backup_ = backup; }

    // Who keeps account of the changes, now and after each opening; null for nobody.
    void watch(ChangeWatcher* watcher);
    // See Purpose: 0 when nobody has told.
    int purpose() const { return purpose_; }
    bool inJob() const { return purposes_ > 0; }

private:
    friend class Purpose;
    friend class Statement;

    void listen();
    // Behind a statement.
    void settle(bool done) noexcept;

    // The statement ready to run, in nobody else's hands.
    PreparedStatement prepare(const QString& sql) const;
    void keep(const QString& sql, PreparedStatement statement) const;
    [[noreturn]] void failAs(int engineCode) const;

    QString path_;
    std::unique_ptr<SQLite::Database> database_;
    // The statements that ran last, by their text. They go before the engine does.
    mutable QCache<QString, PreparedStatement> prepared_;
    OnlineBackup* backup_ = nullptr;
    ChangeWatcher* watcher_ = nullptr;
    int purpose_ = 0;
    int purposes_ = 0; // one inside the other
};

// A transaction that rolls back on every way out unless it was committed.
class Transaction
{
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Connection& connection_;
    bool open_ = true;
};

// One state of the file for all that is read while it lives, and one lock instead of one a statement. Inside
// a transaction it changes nothing.
class Snapshot
{
public:
    explicit Snapshot(Connection& connection);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

private:
    Connection& connection_;
};

} // namespace platform
