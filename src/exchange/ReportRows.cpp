#include "exchange/ReportRows.h"

#include "platform/Connection.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/NodeKey.h"

#include <QStringBuilder>
#include <utility>
#include <vector>

namespace exchange {

Selection Selection::ofKey(const QString& key)
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    return {ids.IDGrp, ids.IDInst};
}

ReportRows::ReportRows(session::Session& session, const Selection& selection)
    : session_(session), selection_(selection)
{
}

bool ReportRows::isEmpty() const
{
    bool empty = true;
    each([&empty](const ReportRow&) { return empty = false; });
    return empty;
}

qint64 ReportRows::atMost() const
{
    platform::Statement count(session_.cnDatabase,
                              u"SELECT Count(*) FROM tbParametersUser" % whereOf("tbParametersUser") % u';');
    return count.step() ? count.integer(0) : 0;
}

// One run of the statement an instrument: sorting a whole company's rows at once would take as long again.
void ReportRows::each(const Take& take) const
{
    const platform::Snapshot oneState(session_.cnDatabase);
    std::vector<std::pair<qint64, qint64>> instruments;
    platform::Statement order(session_.cnDatabase,
                              u"SELECT tbInstrumentsUser.IDGrp, tbInstrumentsUser.IDInst "
                              u"FROM tbGroupsUser INNER JOIN tbInstrumentsUser "
                              u"ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp" %
                                  whereOf("tbInstrumentsUser") %
                                  u" ORDER BY tbGroupsUser.Name, tbGroupsUser.IDGrp, "
                                  u"tbInstrumentsUser.Name, tbInstrumentsUser.IDInst;");
    while (order.step())
        instruments.emplace_back(order.integer(0), order.integer(1));

    platform::Statement rows(session_.cnDatabase, statement());
    for (const auto& [IDGrp, IDInst] : instruments) {
        rows.reset();
        rows.bind(1, IDGrp);
        rows.bind(2, IDInst);
        while (rows.step()) {
            if (!take(ReportRow(rows)))
                return;
        }
    }
}

QString ReportRows::statement() const
{
    const QString language = session::Compose_SqlText(session_.Language.Code);
    return u"SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDPar, "
           u"tbParametersUser.IDParGrp, tbGroupsUser.Name AS GrpName, tbGroupsUser.Description AS GrpDes, "
           u"tbGroupsUser.Phone, tbInstrumentsUser.Name AS InstName, "
           u"tbInstrumentsUser.Description AS InstDes, tbInstrumentsUser.IDItem, tbInstrumentsUser.Address, "
           u"tbParamGroupLanguage.mDesc AS ParGrpDes, tbParamLanguage.mDesc AS ParDes, "
           u"tbParamType.mTag AS KeyType, tbParam.mUnit AS UM, tbParam.mDP AS Prec, tbParametersUser.Value, "
           u"tbParametersUser.State "
           u"FROM tbParamType INNER JOIN (((((((tbGroupsUser INNER JOIN tbInstrumentsUser "
           u"ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp) "
           u"INNER JOIN tbInstrument ON tbInstrumentsUser.IDItem = tbInstrument.mTag) "
           u"INNER JOIN tbParametersUser ON (tbInstrumentsUser.IDInst = tbParametersUser.IDInst) "
           u"AND (tbInstrumentsUser.IDGrp = tbParametersUser.IDGrp)) "
           u"INNER JOIN tbInstrumentLanguage ON tbInstrument.mTag = tbInstrumentLanguage.mID) "
           u"INNER JOIN tbParamLanguage ON tbParametersUser.IDPar = tbParamLanguage.mID) "
           u"INNER JOIN tbParamGroupLanguage ON tbParametersUser.IDParGrp = tbParamGroupLanguage.mID) "
           u"INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID) "
           u"ON tbParamType.mID = tbParam.mKeyType "
           u"WHERE ((tbInstrumentLanguage.mKeyLang = " %
           language % u") AND (tbParamLanguage.mKeyLang = " % language %
           u") AND (tbParamGroupLanguage.mKeyLang = " % language %
           u") AND (tbParametersUser.IDGrp = ?) AND (tbParametersUser.IDInst = ?)) "
           u"ORDER BY tbParametersUser.IDParGrp, tbParametersUser.IDPar;";
}

QString ReportRows::whereOf(const QString& table) const
{
    if (selection_.IDGrp.isEmpty())
        return {};
    const QString group = u" WHERE (" % table % u".IDGrp = " % selection_.IDGrp % u')';
    return selection_.IDInst.isEmpty() ? group
                                       : group % u" AND (" % table % u".IDInst = " % selection_.IDInst % u')';
}

} // namespace exchange
