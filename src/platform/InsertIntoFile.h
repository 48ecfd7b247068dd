#pragma once

#include <QString>
#include <optional>

namespace SQLite {
class Database;
}

namespace platform {

// "INSERT INTO tbUsers IN 'C:\Data\Copy.mdb'SELECT tbUsers.* FROM tbUsers": rows that go wholesale into the
// same table of another file. The engine at hand has no such clause.
struct InsertIntoFile
{
    QString table;
    QString file;
    QString source; // the table of this file

    // None when the statement is another one.
    static std::optional<InsertIntoFile> parse(const QString& sql);

    // Takes every column by its name; two tables whose columns differ fail. Returns the number of rows.
    int run(SQLite::Database& engine) const;
};

} // namespace platform
