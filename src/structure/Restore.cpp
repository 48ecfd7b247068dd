#include "structure/Structure.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <optional>

namespace structure {

namespace {

// The condition of the rows below a key; none for a level that has no rows.
std::optional<QString> rowsBelow(int level, const KeyParts& ids)
{
    switch (level) {
    case kRoot:
        return QString();
    case kGroup:
        return QStringLiteral("WHERE (IDGrp = %1)").arg(ids.IDGrp);
    case kInstrument:
        return QStringLiteral("WHERE ((IDGrp = %1) AND (IDInst = %2))").arg(ids.IDGrp, ids.IDInst);
    case kParamGroup:
        return QStringLiteral("WHERE ((IDGrp = %1) AND (IDInst = %2) AND (IDParGrp = %3))")
            .arg(ids.IDGrp, ids.IDInst, session::Compose_SqlText(ids.IDParGrp));
    case kParameter:
        return QStringLiteral("WHERE ((IDGrp = %1) AND (IDInst = %2) AND (IDPar = %3))")
            .arg(ids.IDGrp, ids.IDInst, session::Compose_SqlText(ids.IDPar));
    default:
        return std::nullopt;
    }
}

} // namespace

bool Restore_Item(session::Session& session, platform::Operator& op, const QString& key)
{
    return platform::guarded("Module/Restore_Item", [&] {
        const platform::BusyPointer busy(op);
        const std::optional<QString> condition = rowsBelow(Extract_Level(key), Extract_Key(key));
        if (condition)
            session.cnDatabase.Execute(
                QStringLiteral("UPDATE tbParametersUser SET State = 0 %1;").arg(*condition));
        return true;
    });
}

} // namespace structure
