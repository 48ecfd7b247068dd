#pragma once

#include <QStringList>

namespace events {

// The names of the log files in a folder, sorted without regard to case; hidden ones are left out. A folder
// that isn't there fails.
QStringList logFilesIn(const QString& folder);

// Whether the name is that of a file which this program writes into its log folder, an event log or a report.
bool isOwnLog(const QString& name, const QString& exeName);
// Whether it is an event log.
bool isEventLog(const QString& name, const QString& exeName);

} // namespace events
