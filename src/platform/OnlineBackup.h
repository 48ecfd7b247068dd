#pragma once

#include <QString>
#include <memory>

struct sqlite3_backup;
namespace SQLite {
class Database;
}

namespace platform {

class Connection;

// A copy of the file of an open connection, made in small steps between which the connection is used as
// ever: what it writes meanwhile is in the copy, too. A connection has one at a time; it ends with the
// connection at the latest.
class OnlineBackup
{
public:
    // `target` is a new file. Its bytes are in the hands of the system, not yet flushed to the disk.
    OnlineBackup(Connection& source, const QString& target);
    ~OnlineBackup();
    OnlineBackup(const OnlineBackup&) = delete;
    OnlineBackup& operator=(const OnlineBackup&) = delete;

    // Copies so many pages at most; true when the copy is complete, and closed. A source that is being
    // written at this moment copies nothing. Fails when the target can't be written.
    bool step(int pages);
    // The connection was closed before the copy was complete.
    bool isAbandoned() const { return !source_; }

private:
    friend class Connection;
    void abandon();
    void end();

    QString target_;
    Connection* source_;
    std::unique_ptr<SQLite::Database> copy_;
    sqlite3_backup* backup_ = nullptr;
};

} // namespace platform
