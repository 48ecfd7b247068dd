#include "database/CompanyCheck.h"
#include "database/CompanyCopies.h"
#include "database/Database.h"
#include "database/FileChoice.h"
#include "database/Safekeeping.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QDir>
#include <QFile>

namespace database {

using platform::guarded;

void Safekeeping::Restore_Database()
{
    guarded("Module/Restore_Database", [&] {
        session::Session& session = with_.session;
        checkBackupFolder(session);
        const auto source = askRestoreSource();
        if (!source)
            return;
        const auto target = askRestoreTarget(source->name);
        if (!target)
            return;
        const QString former = session.DbName;
        with_.database.Disconnect_Database();
        CopyOptions options;
        options.keepAs = keptName(*target);
        const bool copied =
            Copy_Database(source->folder, source->name, target->folder, target->name, options);
        if (copied) {
            session.DbName = target->name;
            session.DbPath = target->folder;
            with_.op.messageBox(with_.texts(515), platform::Buttons::Ok, platform::Icon::Information,
                                session.AppTitle);
        } else {
            QFile::remove(options.keepAs);
            if (former.isEmpty())
                return;
            session.DbName = former;
        }
        connectRestored(options.keepAs);
    });
}

// None when the operator cancelled or the name is refused.
std::optional<ChosenPath> Safekeeping::askRestoreTarget(const QString& sourceName)
{
    const qsizetype ending = sourceName.indexOf(QLatin1String(".BAK"), 0, Qt::CaseInsensitive);
    const QString proposal = ending < 0 ? sourceName : sourceName.left(ending);
    auto target = chooseFile(with_.session, with_.texts, with_.op, [&] {
        return with_.op
            .saveFile({with_.texts(189), QStringLiteral("Access (*.mdb)|*.mdb"), proposal,
                       with_.database.startFolder()})
            .name;
    });
    if (!target || !(isModelName(target->name) || with_.database.isModel(target->path())))
        return target;
    refuse(with_.texts(session::rows::kBadFileName));
    return std::nullopt;
}

// Before anything is replaced: the chosen file must be a company that opens.
bool Safekeeping::isCompany(const ChosenPath& file)
{
    try {
        const platform::BusyPointer busy(with_.op);
        checkCompany(file.path(), file.path(), with_.texts);
        return true;
    } catch (const platform::RuntimeError& error) {
        refuse(error.description);
        return false;
    }
}

// What stood in the target's place goes only when the restored company is connected.
void Safekeeping::connectRestored(const QString& kept)
{
    if (with_.database.Connect_Database(with_.session.dbFile())) {
        QFile::remove(kept);
        emit with_.database.connected();
        return;
    }
    with_.database.Disconnect_Database();
    emit with_.database.connectionLost();
    if (QFile::exists(kept))
        refuse(with_.texts.own(QStringLiteral("restore.kept")).arg(QDir::toNativeSeparators(kept)));
}

// One of its own for each restore: none takes the place of an earlier one that still stands.
QString Safekeeping::keptName(const ChosenPath& target) const
{
    return replacedName(target.path(), with_.clock.now());
}

} // namespace database
