#pragma once

#include <QString>

namespace database {

// Copies a database file that nobody has open onto `target`, whole or not at all: a full disk leaves an
// existing target as it was. What an interrupted program left beside the target (journals) goes with the old
// file, and stays with it when the copy can't take its place. Owner and group may read the copy, whatever the
// source's rights. Fails with file and reason.
void copyDatabaseFile(const QString& source, const QString& target);

} // namespace database
