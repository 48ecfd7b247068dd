#include "users/UserEditor.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Lookup.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "users/UserFields.h"
#include "users/UserPrintout.h"
#include "users/UserTable.h"

#include <QRegularExpression>
#include <QStringBuilder>

namespace users {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;
using session::composeTextOrNull;

namespace {

const QString kIDUser = QStringLiteral("IDUser");
const QString kName = QStringLiteral("Name");
const QString kPassword = QStringLiteral("Password");
const QString kAdministrator = QStringLiteral("0");
constexpr int kLowestNumber = 1;
constexpr int kHighestNumber = 9999;

void moveLast(Recordset& records)
{
    while (!records.Eof())
        records.MoveNext();
    records.MovePrevious();
}

QString flag(bool set)
{
    return set ? QStringLiteral("-1") : QStringLiteral("0");
}

} // namespace

UserEditor::UserEditor(const Surroundings& surroundings) : with_(surroundings) {}

void UserEditor::Load()
{
    Clean_Controls();
}

// The fields
// -----------------------------------------------------------------------------------------------------------

void UserEditor::Clean_Controls()
{
    for (const TextOfUser& text : kTexts)
        texts_[text.column] = QString();
    for (const RightOfUser& right : kRights)
        rights_[right.column] = false;
    state_ = kEnabled;
    newRecord_ = true;
    changed_ = false;
    recordID_.clear();
    EnableDisable_Controls(true);
    emit filled();
}

void UserEditor::FillControls_Item()
{
    const Recordset& rsUsers = with_.session.rsUsers;
    if (rsUsers.Eof())
        return;
    for (const TextOfUser& text : kTexts)
        texts_[text.column] = session::Null_To_Value(rsUsers[text.column]);
    for (const RightOfUser& right : kRights)
        rights_[right.column] = session::rightOf(rightText(rsUsers[right.column]));
    state_ = isEnabled(rsUsers["State"]) ? kEnabled : kDisabled;
    newRecord_ = false;
    changed_ = false;
    recordID_ = texts_[kIDUser];
    EnableDisable_Controls(!isAdministrator());
    emit filled();
}

void UserEditor::EnableDisable_Controls(bool enable)
{
    controlsEnabled_ = enable;
}

void UserEditor::setText(const QString& column, const QString& text)
{
    texts_[column] = text;
    changed_ = true;
}

void UserEditor::setRight(const QString& column, bool given)
{
    rights_[column] = given;
    changed_ = true;
}

void UserEditor::setState(int state)
{
    state_ = state;
    changed_ = true;
}

bool UserEditor::isAdministrator() const
{
    return text(kIDUser) == kAdministrator;
}

// Whether the fields show the record of the number that stands in them.
bool UserEditor::standsOnRecord() const
{
    return !newRecord_ && text(kIDUser).compare(recordID_, Qt::CaseInsensitive) == 0;
}

// Searching
// ----------------------------------------------------------------------------------------------------------

void UserEditor::enterIDUser()
{
    rememberedID_ = text(kIDUser);
}

void UserEditor::txtIDUser_LostFocus()
{
    guarded("frmUsers.txtIDUser_LostFocus", [&] {
        if (text(kIDUser).isEmpty()) {
            Clean_Controls();
            return;
        }
        // The fields show this record already, perhaps with changes that are not stored yet.
        if (standsOnRecord())
            return;
        const QString chosen = lookedUp();
        const bool cancelled = chosen.isEmpty();
        texts_[kIDUser] = cancelled ? rememberedID_ : chosen;
        emit filled();
        if (standsOnRecord() || Search_Item())
            return;
        // Nobody has this number yet: it is a new operator's.
        newRecord_ = true;
        EnableDisable_Controls(true);
        emit filled();
    });
}

// The number typed or, behind a "*" or "@", the one chosen in the list; "" when the list was cancelled.
QString UserEditor::lookedUp()
{
    session::ZoomSettings zoom;
    zoom.Caption = with_.texts(session::rows::kOperators);
    zoom.Connection = with_.session.ConnectionString;
    zoom.Select = u"SELECT IDUser AS " % with_.texts(session::rows::kId) % u", Name AS " %
                  with_.texts(session::rows::kName) % u" FROM tbUsers";
    zoom.OrderBy = kIDUser;
    zoom.KeyField = kIDUser;
    zoom.NameField = kName;
    with_.lookup.ZoomSet = zoom;
    return with_.lookup.ShowZoom(text(kIDUser));
}

bool UserEditor::Search_Item()
{
    return guarded("frmUsers/Search_Item", [&] {
        if (!find(with_.session, text(kIDUser)))
            return false;
        FillControls_Item();
        return true;
    });
}

// Storing
// -----------------------------------------------------------------------------------------------------------

void UserEditor::New_Item()
{
    if (!Update_Item())
        return;
    Clean_Controls();
    emit focusWanted(QStringLiteral("txtIDUser"));
}

bool UserEditor::Update_Item()
{
    return guarded("frmUsers/Update_Item", [&] {
        if (!changed_ || !ask(519))
            return true;
        if (text(kIDUser).isEmpty() || text(kName).isEmpty()) {
            refuse(522);
            return false;
        }
        // Another number than that of the record that was filled in is another operator's.
        if (!standsOnRecord()) {
            if (!numberIsFree())
                return false;
            add();
        } else {
            change();
        }
        changed_ = false;
        readAgain(text(kIDUser));
        return true;
    });
}

// A new operator's number, without the noughts in front; false after the refusal of one that can't be.
bool UserEditor::numberIsFree()
{
    static const QRegularExpression kNumber(QStringLiteral("^-?[0-9]+$"));
    if (!kNumber.match(text(kIDUser)).hasMatch()) {
        refuse(520);
        return false;
    }
    const int number = text(kIDUser).toInt();
    if (number < kLowestNumber || number > kHighestNumber) {
        refuse(521);
        return false;
    }
    texts_[kIDUser] = QString::number(number);
    if (find(with_.session, text(kIDUser)))
        platform::fail(platform::errors::kDatabase, with_.texts.own("user.twice").arg(text(kIDUser)));
    return true;
}

void UserEditor::add()
{
    QStringList columns{QStringLiteral("State")};
    QStringList values{QString::number(state_)};
    for (const TextOfUser& field : kTexts) {
        columns << field.column;
        values << composeTextOrNull(text(field.column));
    }
    for (const RightOfUser& field : kRights) {
        columns << field.column;
        values << flag(right(field.column));
    }
    with_.session.cnDatabase.Execute(u"INSERT INTO tbUsers (" % columns.join(u", ") % u") VALUES (" %
                                     values.join(u", ") % u");");
}

// Of the administrator nothing but the password.
void UserEditor::change()
{
    QStringList pairs{u"Password = " % composeTextOrNull(text(kPassword))};
    if (!isAdministrator()) {
        pairs << u"State = " % QString::number(state_);
        for (const TextOfUser& field : kTexts) {
            if (field.column != kIDUser && field.column != kPassword)
                pairs << QLatin1String(field.column) % u" = " % composeTextOrNull(text(field.column));
        }
        for (const RightOfUser& field : kRights)
            pairs << QLatin1String(field.column) % u" = " % flag(right(field.column));
    }
    const int stored =
        with_.session.cnDatabase.Execute(u"UPDATE tbUsers SET " % pairs.join(u", ") % u" WHERE (IDUser = " %
                                         Compose_SqlText(recordID_) % u");");
    if (stored == 0)
        platform::fail(platform::errors::kDatabase, with_.texts.own("user.gone").arg(recordID_));
}

// What is stored is what is shown from here on.
void UserEditor::readAgain(const QString& IDUser)
{
    requery(with_.session);
    if (find(with_.session, IDUser))
        FillControls_Item();
}

void UserEditor::Delete_Item()
{
    guarded("frmUsers/Delete_Item", [&] {
        Update_Item();
        if (isAdministrator() || text(kIDUser).isEmpty() || text(kName).isEmpty() || !standsOnRecord()) {
            refuse(531);
            return;
        }
        if (with_.op.ask({with_.texts(506), text(kIDUser) % u" - " % text(kName), platform::Icon::Question,
                          with_.session.AppTitle, true}) != platform::answers::kYes)
            return;
        const int deleted = with_.session.cnDatabase.Execute(u"DELETE FROM tbUsers WHERE (IDUser = " %
                                                             Compose_SqlText(recordID_) % u");");
        requery(with_.session);
        Clean_Controls();
        if (deleted == 0)
            platform::fail(platform::errors::kDatabase, with_.texts.own("user.gone").arg(recordID_));
    });
}

// Walking
// -----------------------------------------------------------------------------------------------------------

void UserEditor::First_Item()
{
    walk("frmUsers/First_Item", [](Recordset& rsUsers) { rsUsers.MoveFirst(); });
}

void UserEditor::Last_Item()
{
    walk("frmUsers/Last_Item", [](Recordset& rsUsers) { moveLast(rsUsers); });
}

void UserEditor::Next_Item()
{
    walk("frmUsers/Next_Item", [](Recordset& rsUsers) {
        if (!rsUsers.Eof())
            rsUsers.MoveNext();
        if (rsUsers.Eof())
            rsUsers.MoveFirst();
    });
}

void UserEditor::Prev_Item()
{
    walk("frmUsers/Prev_Item", [](Recordset& rsUsers) {
        if (!rsUsers.Bof())
            rsUsers.MovePrevious();
        if (rsUsers.Bof())
            moveLast(rsUsers);
    });
}

void UserEditor::walk(const char* procedure, const std::function<void(Recordset&)>& move)
{
    guarded(procedure, [&] {
        if (!Update_Item())
            return;
        Recordset& rsUsers = with_.session.rsUsers;
        if (rsUsers.RecordCount() == 0)
            return;
        move(rsUsers);
        FillControls_Item();
        emit focusWanted(QStringLiteral("txtIDUser"));
    });
}

void UserEditor::Refresh_Item()
{
    guarded("frmUsers/Refresh_Item", [&] {
        if (!Update_Item())
            return;
        requery(with_.session);
        Search_Item();
    });
}

bool UserEditor::Exit()
{
    return Update_Item();
}

// Printing
// ----------------------------------------------------------------------------------------------------------

void UserEditor::PrintItem()
{
    guarded("frmUsers/PrintItem", [&] {
        const UserPrintout printout(with_.session, with_.texts);
        const QStringList record = standsOnRecord() ? printout.record(with_.session.rsUsers) : QStringList();
        with_.printing.print(printout.report({record}, false), [&] { return isThere(!record.isEmpty()); });
    });
}

void UserEditor::Print_List_Items()
{
    guarded("frmUsers/Print_List_Items", [&] {
        const UserPrintout printout(with_.session, with_.texts);
        std::vector<QStringList> records;
        Recordset all = with_.session.rsUsers;
        for (all.MoveFirst(); !all.Eof(); all.MoveNext())
            records.push_back(printout.record(all));
        with_.printing.print(printout.report(records, true), [&] { return isThere(!records.empty()); });
    });
}

bool UserEditor::isThere(bool anything)
{
    if (!anything)
        refuse(570);
    return anything;
}

bool UserEditor::ask(int text)
{
    return with_.op.messageBox(with_.texts(text), platform::Buttons::YesNo, platform::Icon::Question,
                               with_.session.AppTitle) == platform::answers::kYes;
}

void UserEditor::refuse(int text)
{
    with_.op.messageBox(with_.texts(text), platform::Buttons::Ok, platform::Icon::Exclamation,
                        with_.session.AppTitle);
}

} // namespace users
