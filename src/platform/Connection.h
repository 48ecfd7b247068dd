#pragma once

#include <QString>
#include <memory>

namespace SQLite {
class Database;
}

namespace platform {

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

    // `connectionString` holds "Data Source = <file>" as its last part.
    void Open(const QString& connectionString);
    void Close();
    int State() const;

    // Runs one statement without a result; returns the number of rows that it changed. An update over a join
    // is put into the engine's own words.
    int Execute(const QString& sql);

    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    // The engine's own handle, for Recordset. Fails when the connection is closed.
    SQLite::Database& database() const;

private:
    QString path_;
    std::unique_ptr<SQLite::Database> database_;
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
