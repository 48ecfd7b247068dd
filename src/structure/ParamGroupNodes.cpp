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
    const QString group = u"WHERE (IDGrp = " % below.IDGrp;
    return below.IDInst.isEmpty() ? QString(group % u')')
                                  : QString(group % u" AND IDInst = " % below.IDInst % u')');
}

} // namespace

QString paramGroupsStatement(const KeyParts& below, const QString& languageCode)
{
    return QStringLiteral(R"(
        SELECT tbKeys.IDGrp, tbKeys.IDInst, tbKeys.IDParGrp, tbParamGroupLanguage.mDesc AS Name
        FROM (SELECT DISTINCT IDGrp, IDInst, IDParGrp FROM tbParametersUser %1) AS tbKeys
        INNER JOIN tbParamGroupLanguage ON tbKeys.IDParGrp = tbParamGroupLanguage.mID
        WHERE (tbParamGroupLanguage.mKeyLang = %2)
        ORDER BY tbKeys.IDGrp, tbKeys.IDInst, tbKeys.IDParGrp;)")
        .arg(conditionOf(below), session::Compose_SqlText(languageCode));
}

int addParamGroupNodes(session::Session& session, Structure& structure, const KeyParts& below)
{
    platform::Recordset rows;
    rows.Open(paramGroupsStatement(below, session.Language.Code), session.cnDatabase);
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
