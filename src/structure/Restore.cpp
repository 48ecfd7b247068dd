#include "structure/Structure.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <QStringBuilder>
#include <optional>

namespace structure {

namespace {

// The condition of the rows below a key; none for a level that has no rows.
std::optional<QString> rowsBelow(int level, const KeyParts& ids)
{
    const QString group = u"(IDGrp = " % ids.IDGrp % u')';
    const QString instrument = group % u" AND (IDInst = " % ids.IDInst % u')';
    switch (level) {
    case kRoot:
        return QString();
    case kGroup:
        return u"WHERE " % group % u';';
    case kInstrument:
        return u"WHERE (" % instrument % u");";
    case kParamGroup:
        return u"WHERE (" % instrument % u" AND (IDParGrp = " % session::Compose_SqlText(ids.IDParGrp) %
               u"));";
    case kParameter:
        return u"WHERE (" % instrument % u" AND (IDPar = " % session::Compose_SqlText(ids.IDPar) % u"));";
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
        if (condition) {
            session.strSQL = u"UPDATE tbParametersUser SET State = 0 " % *condition;
            session.cnDatabase.Execute(session.strSQL);
        }
        return true;
    });
}

} // namespace structure
