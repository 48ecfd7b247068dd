#pragma once

#include <QString>
#include <functional>

namespace database {

// What a copy does besides copying; each may be missing.
struct CopyOptions
{
    // How many bytes of how many are written, a megabyte apart.
    std::function<void(qint64 done, qint64 total)> progress = {};
    // Looks at the complete copy, beside its place, before it takes it; what it throws ends the copy.
    std::function<void(const QString& file)> check = {};
    // The name under which the file that is replaced stays; empty when it may go.
    QString keepAs = {};
};

// Copies a database file that nobody has open onto `target`, whole or not at all: it is written beside the
// target, flushed to the disk, and takes the target's place at the end. A full disk, a killed program or a
// power cut leaves an existing target as it was. Behind a link the file it leads to is replaced.
//
// What an interrupted program left in the target is undone first, so that its journal can't be played into
// the new file; a target that another program is writing is refused. Owner and group may read
// the copy, whatever the source's rights. Fails with file and reason.
void copyDatabaseFile(const QString& source, const QString& target, const CopyOptions& options = {});

// Whether anything stands beside a database file that belongs to it: what a killed program left behind.
bool hasSideFiles(const QString& file);

} // namespace database
