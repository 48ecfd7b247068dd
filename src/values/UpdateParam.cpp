#include "values/UpdateParam.h"

#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "values/ValueCause.h"

namespace values {

bool Update_Param(session::Session& session, int IDGrp, int IDInst, const QString& IDPar,
                  const QString& Value)
{
    return platform::guarded("Module/Update_Param", [&] {
        static const QString kStatement = QStringLiteral(
            R"(UPDATE tbParametersUser
               SET [Value] = %1, State = 0
               WHERE ((IDGrp = %2) AND (IDInst = %3) AND (IDPar = %4));)");
        const Causing causing(session.cnDatabase, ValueCause::Read);
        session.cnDatabase.Execute(kStatement.arg(session::composeTextOrNull(Value), QString::number(IDGrp),
                                                  QString::number(IDInst), session::Compose_SqlText(IDPar)));
        return true;
    });
}

} // namespace values
