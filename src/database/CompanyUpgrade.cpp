#include "database/CompanyUpgrade.h"

#include "database/CompanyCopies.h"
#include "database/CopyWindow.h"
#include "database/Database.h"
#include "database/FileChoice.h"
#include "database/FileCopy.h"
#include "database/InsertIntoFile.h"
#include "database/Safekeeping.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Heartbeat.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QDir>
#include <QFile>
#include <QStringBuilder>

namespace database {

using platform::guarded;

namespace {

const QStringList kTables{"tbCompanySettings", "tbGroupsUser", "tbInstrumentsUser", "tbParametersUser",
                          "tbUsers"};

// Runs what a failure leaves to be done, unless it was dismissed.
class OnFailure
{
public:
    explicit OnFailure(std::function<void()> work) : work_(std::move(work)) {}
    ~OnFailure()
    {
        if (work_)
            work_();
    }
    OnFailure(const OnFailure&) = delete;
    OnFailure& operator=(const OnFailure&) = delete;

    void dismiss() { work_ = nullptr; }

private:
    std::function<void()> work_;
};

void removeFile(const QString& path)
{
    QFile file(path);
    if (!file.remove())
        platform::fail(platform::errors::kPermissionDenied,
                       QStringLiteral("'%1': %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

} // namespace

void CompanyUpgrade::Upgrade_Database()
{
    guarded("Module/Upgrade_Database", [&] {
        if (!isAllowed())
            return;
        checkBackupFolder(with_.session);
        dialogOk_ = false;
        with_.op.showFormModal(QStringLiteral("frmUpgrade"));
        if (dialogOk_)
            with_.database.reconnect();
    });
}

bool CompanyUpgrade::isAllowed()
{
    if (!with_.session.DbName.isEmpty())
        return session::rightOf(with_.session.CurrentUser.UpgradeDb);
    with_.op.messageBox(with_.texts(session::rows::kNoCompanyOpen), platform::Buttons::Ok,
                        platform::Icon::Exclamation, with_.session.AppTitle);
    return false;
}

void CompanyUpgrade::cmdCancel_Click()
{
    dialogOk_ = false;
    emit finished();
}

void CompanyUpgrade::cmdUpgrade_Click()
{
    guarded("frmUpgrade.cmdUpgrade_Click", [&] {
        if (Upgrade())
            with_.op.messageBox(with_.texts(525), platform::Buttons::Ok, platform::Icon::Information,
                                with_.session.AppTitle);
    });
    // Whatever came of it, the company must be connected again.
    dialogOk_ = true;
    emit finished();
}

bool CompanyUpgrade::Upgrade()
{
    return guarded("frmUpgrade/Upgrade", [&] {
        session::Session& session = with_.session;
        const platform::BusyPointer busy(with_.op);
        OnFailure disconnect([this] { with_.database.Disconnect_Database(); });
        const OnFailure stopAnimation([this] { emit animated(false); }); // and on success
        emit animated(true);

        copyModel();
        moveTables();

        disconnect.dismiss();
        const QString name = session.DbName;
        with_.database.Disconnect_Database();
        session.DbName = name;
        if (session.cnDatabase.State() != platform::Connection::Closed)
            platform::fail(platform::errors::kPermissionDenied, with_.texts.own(QStringLiteral("copy.open")));

        const QString safety =
            session.DirBackup % u'/' % session.AppTitle % u'_' % timeStamp(with_.clock.now()) % u".bak";
        copyToSafety(safety);
        takePlace();
        begin(200, 100);
        removeFile(safety);
        emit operationChanged(with_.texts(201));
        return true;
    });
}

void CompanyUpgrade::copyModel()
{
    begin(196, 20);
    copy(with_.session.appFile(QStringLiteral("Data Model/") + kModelName), copyOfModel());
}

void CompanyUpgrade::moveTables()
{
    begin(197, 40);
    const platform::Heartbeat heartbeat(with_.session.cnDatabase, [this] { emit working(); });
    for (qsizetype i = 0; i < kTables.size(); ++i) {
        const QString& table = kTables[i];
        emit tableChanged(QStringLiteral("(%1/%2) %3").arg(i + 1).arg(kTables.size()).arg(table));
        insertIntoFile(with_.session.cnDatabase, table, copyOfModel());
    }
}

void CompanyUpgrade::copyToSafety(const QString& safety)
{
    begin(198, 60, with_.session.DbName);
    emit tableChanged(QString());
    copy(with_.session.dbFile(), safety);
}

void CompanyUpgrade::takePlace()
{
    begin(199, 80);
    copy(copyOfModel(), with_.session.dbFile());
    removeFile(copyOfModel());
}

void CompanyUpgrade::begin(int text, int percent, const QString& name)
{
    emit operationChanged(with_.texts(text) + name);
    emit progress(percent);
}

void CompanyUpgrade::copy(const QString& source, const QString& target)
{
    CopyOptions options;
    options.progress = percentTeller([this](int percent) { emit copyProgress(percent); });
    copyDatabaseFile(source, target, options);
}

QString CompanyUpgrade::copyOfModel() const
{
    return with_.session.DbPath + QStringLiteral("/CopyOf_") + kModelName;
}

} // namespace database
