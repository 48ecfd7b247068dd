#pragma once

namespace SQLite {
class Database;
}

namespace platform {

// Registers what the statements call and the engine lacks: Mid(text, start, length), characters counted from
// 1, NULL for NULL. A start below 1 or a negative length fails the statement.
void addSqlFunctions(SQLite::Database& engine);

} // namespace platform
