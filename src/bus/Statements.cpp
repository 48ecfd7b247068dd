#include "bus/Statements.h"

#include "session/Helpers.h"

namespace bus {

using session::Compose_SqlText;

namespace {

QString parametersBegin(const QString& writeColumns)
{
    return QStringLiteral(
               "SELECT tbParametersUser.IDGrp, tbGroupsUser.Name AS DesGrp, tbGroupsUser.Phone, "
               "tbParametersUser.IDInst, tbInstrumentsUser.Name AS DesInst, tbInstrumentsUser.IDItem, "
               "tbInstrumentsUser.Address, tbParametersUser.IDParGrp, tbParamGroupLanguage.mDesc AS "
               "DesParGrp, "
               "tbParametersUser.IDPar, tbParamLanguage.mDesc AS DesPar, tbParametersUser.Value, "
               "tbParametersUser.State, tbInstMem.mReadCmd, tbInstMem.mWriteCmd, tbParamType.mTag AS "
               "KeyType, "
               "tbParam.mAddr, ") +
           writeColumns +
           QStringLiteral(
               "tbParam.mType, tbParam.mSize, tbParam.mBitFirst, tbParam.mBitCount, tbParam.mLW, "
               "tbParam.mHW, "
               "tbParam.mLR, tbParam.mHR, tbParam.mLL, tbParam.mHL "
               "FROM tbParamType INNER JOIN (tbParamLanguage INNER JOIN (tbParamGroupLanguage INNER JOIN "
               "(tbGroupsUser INNER JOIN (tbInstrumentsUser INNER JOIN ((tbParametersUser INNER JOIN tbParam "
               "ON "
               "tbParametersUser.IDPar = tbParam.mID) INNER JOIN tbInstMem ON tbParam.mMemBank = "
               "tbInstMem.mID) ON "
               "(tbInstrumentsUser.IDGrp = tbParametersUser.IDGrp) AND (tbInstrumentsUser.IDInst = "
               "tbParametersUser.IDInst)) ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp) ON "
               "tbParamGroupLanguage.mID = tbParametersUser.IDParGrp) ON tbParamLanguage.mID = "
               "tbParametersUser.IDPar) ON tbParamType.mID = tbParam.mKeyType ");
}

QString parametersWhere(const QString& languageCode)
{
    const QString code = Compose_SqlText(languageCode);
    return QStringLiteral("WHERE ((tbParamGroupLanguage.mKeyLang = ") + code +
           QStringLiteral(") AND (tbParamLanguage.mKeyLang = ") + code + QStringLiteral(") ");
}

const QString kParametersOrder =
    QStringLiteral("ORDER BY tbParametersUser.IDInst, tbParametersUser.IDParGrp, tbParametersUser.IDPar;");

} // namespace

QString operationFilter(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp,
                        const QString& IDPar)
{
    QString filter = QStringLiteral("AND (tbParametersUser.IDGrp = ") + IDGrp + QStringLiteral(")");
    if (!IDInst.isEmpty())
        filter += QStringLiteral(" AND (tbParametersUser.IDInst = ") + IDInst + QStringLiteral(")");
    if (!IDParGrp.isEmpty())
        filter += QStringLiteral(" AND (tbParametersUser.IDParGrp = ") + Compose_SqlText(IDParGrp) +
                  QStringLiteral(")");
    if (!IDPar.isEmpty())
        filter +=
            QStringLiteral(" AND (tbParametersUser.IDPar = ") + Compose_SqlText(IDPar) + QStringLiteral(")");
    return filter + QStringLiteral(") ");
}

QString bankFilter(const QString& IDGrp, const QString& IDInst, const QString& bank)
{
    return QStringLiteral("AND (tbParametersUser.IDGrp = ") + IDGrp + QStringLiteral(") ") +
           QStringLiteral("AND (tbParametersUser.IDInst = ") + IDInst + QStringLiteral(") ") +
           QStringLiteral("AND (tbParam.mMemBank = ") + Compose_SqlText(bank) + QStringLiteral(")) ");
}

QString parameterStatement(const QString& languageCode, const QString& filter)
{
    return parametersBegin({}) + parametersWhere(languageCode) + filter + kParametersOrder;
}

QString writeStatement(const QString& languageCode, const QString& filter)
{
    return parametersBegin(QStringLiteral("tbParam.mWriteCmd AS WriteCmdEE, tbParam.mWriteAddr, ")) +
           parametersWhere(languageCode) + QStringLiteral("AND (tbParametersUser.State = 1) ") + filter +
           kParametersOrder;
}

QString bankStatement(const QString& languageCode, const QString& filter)
{
    return QStringLiteral(
               "SELECT tbParametersUser.IDGrp, tbGroupsUser.Name AS DesGrp, tbGroupsUser.Phone, "
               "tbParametersUser.IDInst, tbInstrumentsUser.Name AS DesInst, tbInstrumentsUser.IDItem, "
               "tbInstrumentsUser.Address, tbParam.mMemBank, tbInstMem.mStartAddr AS mAddr, tbInstMem.mSize, "
               "tbInstMem.mReadCmd, tbInstMem.mWriteCmd FROM tbParamLanguage INNER JOIN (tbGroupsUser INNER "
               "JOIN "
               "(tbInstrumentsUser INNER JOIN ((tbParametersUser INNER JOIN tbParam ON "
               "tbParametersUser.IDPar = "
               "tbParam.mID) INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID) ON "
               "(tbInstrumentsUser.IDInst = tbParametersUser.IDInst) AND (tbInstrumentsUser.IDGrp = "
               "tbParametersUser.IDGrp)) ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp) ON "
               "tbParamLanguage.mID = "
               "tbParametersUser.IDPar WHERE ((tbParamLanguage.mKeyLang = ") +
           Compose_SqlText(languageCode) + QStringLiteral(") ") + filter +
           QStringLiteral("GROUP BY tbParametersUser.IDGrp, tbGroupsUser.Name, tbGroupsUser.Phone, "
                          "tbParametersUser.IDInst, "
                          "tbInstrumentsUser.Name, tbInstrumentsUser.IDItem, tbInstrumentsUser.Address, "
                          "tbParam.mMemBank, "
                          "tbInstMem.mStartAddr, tbInstMem.mSize, tbInstMem.mReadCmd, tbInstMem.mWriteCmd "
                          "ORDER BY tbParametersUser.IDInst, tbParam.mMemBank;");
}

} // namespace bus
