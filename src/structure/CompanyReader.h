#pragma once

#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <atomic>
#include <functional>
#include <string_view>

namespace structure {

// Tells a job in another thread that nobody waits for it any more.
using StopFlag = std::atomic_bool;

// A read-only connection of its own on a company file, for work beside the program's connection. A plant is
// read in slices of a few groups each: between two of them the file is free, so that a writer never waits for
// long, and a job that nobody waits for ends.
//
// Failures are RuntimeErrors with the engine's words.
class CompanyReader
{
public:
    explicit CompanyReader(const QString& file);

    SQLite::Database& database() { return database_; }

    // Runs a statement and hands over each row. One with two parameters runs once a slice, from the first
    // number of a group to the last.
    using Row = std::function<void(SQLite::Statement&)>;
    void eachRow(const QString& sql, const Row& take);
    void eachRowOfPlant(const QString& sql, const StopFlag& stop, const Row& take);

private:
    QString file_;
    SQLite::Database database_;
};

std::string_view bytesOf(SQLite::Statement& row, int column);
QString textOf(SQLite::Statement& row, int column); // NULL is ""

} // namespace structure
