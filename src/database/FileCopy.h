#pragma once

#include <QString>

namespace database {

// Copies a database file that nobody has open onto `target`, whole or not at all: a full disk leaves an
// existing target as it was. What an interrupted program left beside the target (journals) goes with the old
// file. The copy takes the ordinary rights of a new file, not the source's. Fails with file and reason.
void copyDatabaseFile(const QString& source, const QString& target);

} // namespace database
