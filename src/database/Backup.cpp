#include "database/CompanyCheck.h"
#include "database/CompanyCopies.h"
#include "database/Database.h"
#include "database/FileChoice.h"
#include "database/Safekeeping.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QFileInfo>

namespace database {

using platform::guarded;

namespace {

const QString kFilter = QStringLiteral("File di Backup (*.bak)|*.bak|Tutti i File (*.*)|*.*");

// Whether two names stand for one file, be it through a link.
bool isSameFile(const QString& one, const QString& other)
{
    return QFileInfo(one) == QFileInfo(other);
}

} // namespace

void Safekeeping::Backup_Database()
{
    guarded("Module/Backup_Database", [&] {
        session::Session& session = with_.session;
        if (session.DbName.isEmpty())
            return refuse(with_.texts(session::rows::kNoCompanyOpen));
        if (session.CurrentUser.IDUser.isEmpty())
            return;
        checkBackupFolder(session);
        const auto target = askBackupTarget();
        if (!target)
            return;
        const QString name = session.DbName, company = session.dbFile();
        session.DirBackup = target->folder;
        with_.database.Disconnect_Database();
        CopyOptions options;
        options.check = [&](const QString& file) { checkBackup(file, *target, company); };
        if (Copy_Database(session.DbPath, name, session.DirBackup, target->name, options))
            with_.op.messageBox(with_.texts(500), platform::Buttons::Ok, platform::Icon::Information,
                                session.AppTitle);
        session.DbName = name;
        with_.database.reconnect();
    });
}

// None when the operator cancelled or the name is refused.
std::optional<ChosenPath> Safekeeping::askBackupTarget()
{
    const session::Session& session = with_.session;
    const QString proposal = baseName(session.DbName) + QStringLiteral(".bak");
    auto target = chooseFile(session, with_.texts, with_.op, [&] {
        return with_.op.saveFile({with_.texts(186), kFilter, proposal, session.DirBackup}).name;
    });
    if (!target)
        return std::nullopt;
    if (isModelName(target->name) || with_.database.isModel(target->path()))
        refuse(with_.texts(session::rows::kBadFileName));
    else if (isSameFile(target->path(), session.dbFile()))
        refuse(with_.texts.own(QStringLiteral("backup.itself")));
    else
        return target;
    return std::nullopt;
}

// A copy that isn't whole must not take the place of an older backup that is.
void Safekeeping::checkBackup(const QString& file, const ChosenPath& target, const QString& company) const
{
    try {
        checkCompany(file, company, with_.texts);
    } catch (const platform::RuntimeError& error) {
        platform::fail(error.number, with_.texts.own(QStringLiteral("backup.notwhole")).arg(target.name) +
                                         "\r\n" + error.description + "\r\n" +
                                         adviceFor(company, with_.session, with_.texts));
    }
}

std::optional<ChosenPath> Safekeeping::askRestoreSource()
{
    const session::Session& session = with_.session;
    auto source = chooseFile(session, with_.texts, with_.op, [&] {
        return with_.op.openFile({with_.texts(188), kFilter, QString(), session.DirBackup});
    });
    return source && isCompany(*source) ? source : std::nullopt;
}

} // namespace database
