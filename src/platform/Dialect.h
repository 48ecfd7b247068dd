#pragma once

#include <QString>

namespace SQLite {
class Database;
}

namespace platform {

// What the statements say in the dialect that they were written in, and the engine otherwise.

// "UPDATE a INNER JOIN b ON c SET s WHERE w" as "UPDATE a SET s FROM b WHERE (c) AND w". Any other statement
// comes back as it is. Texts inside quotes are never taken for words of the statement.
QString inEngineDialect(const QString& sql);

// Registers Mid(text, start, length): characters counted from 1, NULL for NULL. A start below 1 or a negative
// length fails the statement.
void addDialectFunctions(SQLite::Database& engine);

} // namespace platform
