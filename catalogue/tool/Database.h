#pragma once

#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <functional>

namespace catalogue {

// Builds a database file in one go: fill() works on a fresh file beside the target, which takes the target's
// place only when all has succeeded; until then the target stays as it was. A failure leaves no file behind.
void buildDatabase(const QString& target, const std::function<void(SQLite::Database&)>& fill);

// The parameters of one statement, in their order; a null QString binds NULL.
void bindText(SQLite::Statement& statement, int index, const QString& text);
QString textOf(const SQLite::Column& column); // null when NULL

} // namespace catalogue
