#pragma once

#include <QString>

class QFileDevice;

namespace database {

// A file that is written beside its place and takes it only when it is complete and on the disk, so that
// neither a full disk nor a power cut leaves half a file there.

// Where it is written: beside `target`, under a name that the next attempt takes again.
QString partOf(const QString& target);
// The file that a name stands for: behind a link the one it leads to, so that the link stays.
QString placeOf(const QString& target);

// The failure of a file in the operator's words: its name and the reason.
[[noreturn]] void failOnFile(const QString& path, const QFileDevice& file);

// Brings what was written to the disk itself.
void flushToDisk(QFileDevice& file);
// Puts `part` in the place of `target`, in one step.
void takePlace(const QString& part, const QString& target);
// Brings a folder's entries to the disk: from here on a name stands for the file that took its place.
void flushFolderOf(const QString& file);

// The rights of a company file: its owner writes it, its group may read it.
void restrictRights(const QString& file);

} // namespace database
