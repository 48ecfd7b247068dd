#include "database/Safekeeping.h"

#include "database/CopyWindow.h"
#include "database/Database.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QFileInfo>

namespace database {

using platform::guarded;

bool Safekeeping::Copy_Database(const QString& sourceFolder, const QString& sourceName,
                                const QString& targetFolder, const QString& targetName,
                                const CopyOptions& options)
{
    return guarded("Module/Copy_Database", [&] {
        const platform::BusyPointer busy(with_.op);
        if (with_.session.cnDatabase.State() != platform::Connection::Closed)
            platform::fail(platform::errors::kPermissionDenied, with_.texts.own(QStringLiteral("copy.open")));
        const QString source = sourceFolder + u'/' + sourceName;
        const CopyWindow window(with_.op, QFileInfo(source).size());
        CopyOptions told = options;
        told.progress = percentTeller([this](int percent) { emit copyProgress(percent); });
        copyDatabaseFile(source, targetFolder + u'/' + targetName, told);
        return true;
    });
}

void Safekeeping::refuse(const QString& words)
{
    with_.op.messageBox(words, platform::Buttons::Ok, platform::Icon::Exclamation, with_.session.AppTitle);
}

void checkBackupFolder(session::Session& session)
{
    if (!session::Exist_Path(session.DirBackup))
        session.DirBackup = session.appFile(QStringLiteral("Data"));
}

} // namespace database
