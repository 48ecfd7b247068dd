#include "events/LogFiles.h"

#include "platform/RuntimeError.h"
#include "platform/Words.h"

#include <QDir>

namespace events {

using namespace platform;

QStringList logFilesIn(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.exists())
        fail(errors::kPathNotFound, inWords("folder.missing", {QDir::toNativeSeparators(folder)}));
    return dir.entryList({QStringLiteral("*.log")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}

bool isOwnLog(const QString& name, const QString& exeName)
{
    return name.contains(exeName + QLatin1Char('_'));
}

bool isEventLog(const QString& name, const QString& exeName)
{
    return isOwnLog(name, exeName) && !name.contains(QLatin1String("Error"));
}

} // namespace events
