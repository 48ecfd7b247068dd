#include "users/Login.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "users/UserTable.h"

namespace users {

using platform::guarded;
using platform::Recordset;

namespace {

constexpr int kCompanyLimit = 40;
const QString kForm = QStringLiteral("frmLogInOut");
const QString kNobody = QStringLiteral("-1"); // of the empty line: nobody's number

session::UserRecord recordOf(const Recordset& row)
{
    session::UserRecord user;
    user.IDUser = row.text("IDUser");
    user.Name = row.text("Name");
    user.Phone = row.text("Phone");
    user.Fax = row.text("Fax");
    user.MobilePhone = row.text("MobilePhone");
    user.EMail = row.text("EMail");
    user.UpgradeDb = rightText(row["UpgradeDb"]);
    user.Settings = rightText(row["Settings"]);
    user.Modify = rightText(row["Modify"]);
    user.EventViewer = rightText(row["EventViewer"]);
    user.ReadWrite = rightText(row["ReadWrite"]);
    return user;
}

} // namespace

Login::Login(Surroundings surroundings) : with_(std::move(surroundings)) {}

void Login::Load()
{
    entries_ = {{QString(), kNobody}};
    guarded("frmLogInOut.Load", [&] {
        requery(with_.session);
        Recordset& rsUsers = with_.session.rsUsers;
        for (; !rsUsers.Eof(); rsUsers.MoveNext()) {
            if (!isEnabled(rsUsers["State"]))
                continue;
            const QString IDUser = rsUsers.text("IDUser");
            const QString Name = rsUsers.text("Name");
            entries_.push_back({Name.isEmpty() ? IDUser : Name, IDUser});
        }
    });
}

QString Login::company() const
{
    return with_.session.CompanySet[session::Company].left(kCompanyLimit);
}

bool Login::cmdConnect_Click(int entry, const QString& password)
{
    return guarded("frmLogInOut.cmdConnect_Click", [&] {
        const bool chosen = entry >= 0 && entry < int(entries_.size());
        if (!SearchUser(chosen ? entries_[std::size_t(entry)].IDUser : QString(), password)) {
            with_.op.messageBox(with_.texts(523), platform::Buttons::Ok, platform::Icon::Exclamation,
                                with_.session.AppTitle);
            return false;
        }
        with_.verbs.loggedIn();
        with_.op.unloadForm(kForm);
        return true;
    });
}

bool Login::SearchUser(const QString& IDUser, const QString& Password)
{
    return guarded("frmLogInOut/SearchUser", [&] {
        // Whoever was in before has left, also when nobody comes in.
        with_.session.CurrentUser = {};
        if (!find(with_.session, IDUser) || with_.session.rsUsers.text("Password") != Password)
            return false;
        with_.session.CurrentUser = recordOf(with_.session.rsUsers);
        return true;
    });
}

void Login::cmdDisconnect_Click()
{
    guarded("frmLogInOut.cmdDisconnect_Click", [&] {
        if (with_.session.DbName.isEmpty()) {
            with_.op.messageBox(with_.texts(session::rows::kNoCompanyOpen), platform::Buttons::Ok,
                                platform::Icon::Exclamation, with_.session.AppTitle);
            return;
        }
        with_.verbs.Disconnect_Database();
        with_.verbs.companyLost();
        with_.op.unloadForm(kForm);
    });
}

void Login::cmdExit_Click()
{
    guarded("frmLogInOut.cmdExit_Click", [&] {
        with_.verbs.endProgram();
        with_.op.unloadForm(kForm);
    });
}

} // namespace users
