#include "users/UserTable.h"

#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <QStringBuilder>

namespace users {

using platform::guarded;
using platform::Recordset;

void requery(session::Session& session)
{
    Recordset read;
    read.Open(QStringLiteral("SELECT * FROM tbUsers ORDER BY Name;"), session.cnDatabase);
    session.rsUsers = std::move(read);
}

bool find(session::Session& session, const QString& IDUser)
{
    Recordset& rsUsers = session.rsUsers;
    rsUsers.MoveFirst();
    rsUsers.Find(QStringLiteral("IDUser"), IDUser);
    return !rsUsers.Eof();
}

bool isEnabled(const QVariant& State)
{
    bool numeric = false;
    const int state = State.toInt(&numeric);
    return numeric && state == 0 && !State.isNull();
}

QString rightText(const QVariant& stored)
{
    const QString text = stored.toString();
    if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("-1");
    bool numeric = false;
    stored.toDouble(&numeric);
    return numeric ? text : QStringLiteral("0");
}

void Create_Admin_Profile(session::Session& session)
{
    guarded("Module/Create_Admin_Profile", [&] {
        session.cnDatabase.Execute(QStringLiteral("INSERT INTO tbUsers (IDUser, Name, State) "
                                                  "VALUES ('0', 'ADMINISTRATOR', 0);"));
    });
}

void makeSureOfAnOperator(session::Session& session)
{
    const bool nobody = guarded("Module/Create_Admin_Profile", [&] {
        requery(session);
        return session.rsUsers.RecordCount() == 0;
    });
    if (nobody)
        Create_Admin_Profile(session);
}

} // namespace users
