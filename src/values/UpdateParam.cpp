#include "values/UpdateParam.h"

#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"

namespace values {

bool Update_Param(session::Session& session, int IDGrp, int IDInst, const QString& IDPar,
                  const QString& Value)
{
    return platform::guarded("Module/Update_Param", [&] {
        session.strSQL =
            QStringLiteral("UPDATE tbParametersUser SET [Value] = ") + session::composeTextOrNull(Value) +
            QStringLiteral(", State = 0 ") + QStringLiteral("WHERE ((IDGrp = ") + QString::number(IDGrp) +
            QStringLiteral(") AND (IDInst = ") + QString::number(IDInst) + QStringLiteral(") AND (IDPar = ") +
            session::Compose_SqlText(IDPar) + QStringLiteral("));");
        session.cnDatabase.Execute(session.strSQL);
        return true;
    });
}

} // namespace values
