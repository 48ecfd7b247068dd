#include "structure/ParamGroupNodes.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/Structure.h"

#include <QStringBuilder>

namespace structure {

namespace {

QString conditionOf(const KeyParts& below)
{
    if (below.IDGrp.isEmpty())
        return {};
    const QString group = u"(tbParametersUser.IDGrp = " % below.IDGrp % u") AND ";
    return below.IDInst.isEmpty() ? group : group % u"(tbParametersUser.IDInst = " % below.IDInst % u") AND ";
}

} // namespace

int addParamGroupNodes(session::Session& session, Structure& structure, const KeyParts& below)
{
    const QString sql = QStringLiteral(R"(
        SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp,
               tbParamGroupLanguage.mDesc AS Name
        FROM tbParametersUser
        INNER JOIN tbParamGroupLanguage ON tbParametersUser.IDParGrp = tbParamGroupLanguage.mID
        WHERE (%1(tbParamGroupLanguage.mKeyLang = %2))
        GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp,
                 tbParamGroupLanguage.mDesc
        ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp;)")
                            .arg(conditionOf(below), session::Compose_SqlText(session.Language.Code));
    platform::Recordset rows;
    rows.Open(sql, session.cnDatabase);
    int added = 0;
    QString unordered; // the instrument that has got a node among others
    const auto order = [&](const QString& next) {
        if (!unordered.isEmpty() && unordered != next)
            structure.orderNodes(unordered);
        unordered = next;
    };
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString IDGrp = rows.text(QStringLiteral("IDGrp")),
                      IDInst = rows.text(QStringLiteral("IDInst")),
                      IDParGrp = rows.text(QStringLiteral("IDParGrp"));
        const QString instrument = Compose_Key(kParamGroup, IDGrp, IDInst, {});
        const bool known = structure.tree().contains(Compose_Key(kParamGroup + 1, IDGrp, IDInst, IDParGrp));
        if (known || !structure.tree().contains(instrument))
            continue;
        structure.Add_Node_TreeBus(kParamGroup, IDGrp, IDInst, IDParGrp, rows.text(QStringLiteral("Name")));
        order(instrument);
        ++added;
    }
    order({});
    return added;
}

} // namespace structure
