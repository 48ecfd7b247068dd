#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

struct sqlite3;
struct sqlite3_value;

namespace platform {

class Connection;

// One row of a watched table, at the moment when a statement changes it. Columns by their place in the table.
class RowChange
{
public:
    enum class Kind
    {
        Inserted,
        Updated,
        Deleted
    };

    RowChange(sqlite3* engine, Kind kind) : kind(kind), engine_(engine) {}

    // What stood there and what will; an inserted row has no former field, a deleted one no new one.
    qint64 formerInteger(int column) const;
    qint64 newInteger(int column) const;
    // NULL is none. The bytes, UTF-8, live as long as the change.
    std::optional<QByteArrayView> formerText(int column) const;
    std::optional<QByteArrayView> newText(int column) const;

    const Kind kind;

private:
    sqlite3_value* former(int column) const;
    sqlite3_value* coming(int column) const;

    sqlite3* engine_;
};

// Keeps account of what is changed in one table of a company. Nothing that goes wrong in it may show outside.
class ChangeWatcher
{
public:
    virtual ~ChangeWatcher() = default;

    virtual const char* table() const = 0;
    virtual void opened(Connection& connection, const QString& file) noexcept = 0;
    virtual void closing() noexcept = 0;
    // Around each statement: one that fails inside a transaction has changed nothing, whatever was told.
    virtual void statementBegins() noexcept = 0;
    virtual void statementFailed() noexcept = 0;
    virtual void changed(const RowChange& change) noexcept = 0;
    // What was told since the last time is in the file now, or none of it.
    virtual void kept() noexcept = 0;
    virtual void undone() noexcept = 0;
    virtual void jobEnded() noexcept = 0;
};

// What the statements of a connection are for, told to whoever watches them. Purposes nest: the innermost
// counts, and all within the outermost are one job.
class Purpose
{
public:
    Purpose(Connection& connection, int purpose);
    ~Purpose();
    Purpose(const Purpose&) = delete;
    Purpose& operator=(const Purpose&) = delete;

private:
    Connection& connection_;
    const int former_;
};

} // namespace platform
