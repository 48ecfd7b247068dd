#pragma once

#include "platform/Forward.h"

#include <QString>

namespace database {

// All rows of a table go into the same table of another database file. Every column goes by its name; two
// tables whose columns differ fail. What is written to the other file needs no flush of its own: who wants it
// kept copies it to its place. Returns the number of rows.
int insertIntoFile(platform::Connection& company, const QString& table, const QString& file);

} // namespace database
