#include "bus/Statements.h"

#include "session/Helpers.h"

namespace bus {

using session::Compose_SqlText;

namespace {

// %1 further columns, %2 the language, %3 further conditions with the parenthesis that closes them.
const QString kParameters = QStringLiteral(R"(
    SELECT tbParametersUser.IDGrp, tbGroupsUser.Name AS DesGrp, tbGroupsUser.Phone,
        tbParametersUser.IDInst, tbInstrumentsUser.Name AS DesInst, tbInstrumentsUser.IDItem, tbInstrumentsUser.Address,
        tbParametersUser.IDParGrp, tbParamGroupLanguage.mDesc AS DesParGrp,
        tbParametersUser.IDPar, tbParamLanguage.mDesc AS DesPar, tbParametersUser.Value, tbParametersUser.State,
        tbInstMem.mReadCmd, tbInstMem.mWriteCmd, tbParamType.mTag AS KeyType,
        tbParam.mAddr, %1tbParam.mType, tbParam.mSize, tbParam.mBitFirst, tbParam.mBitCount,
        tbParam.mLW, tbParam.mHW, tbParam.mLR, tbParam.mHR, tbParam.mLL, tbParam.mHL
    FROM tbParamType
        INNER JOIN (tbParamLanguage
            INNER JOIN (tbParamGroupLanguage
                INNER JOIN (tbGroupsUser
                    INNER JOIN (tbInstrumentsUser
                        INNER JOIN ((tbParametersUser
                            INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID)
                            INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID)
                        ON (tbInstrumentsUser.IDGrp = tbParametersUser.IDGrp)
                            AND (tbInstrumentsUser.IDInst = tbParametersUser.IDInst))
                    ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp)
                ON tbParamGroupLanguage.mID = tbParametersUser.IDParGrp)
            ON tbParamLanguage.mID = tbParametersUser.IDPar)
        ON tbParamType.mID = tbParam.mKeyType
    WHERE ((tbParamGroupLanguage.mKeyLang = %2) AND (tbParamLanguage.mKeyLang = %2) %3
    ORDER BY tbParametersUser.IDInst, tbParametersUser.IDParGrp, tbParametersUser.IDPar;)");

// %1 the language, %2 further conditions with the parenthesis that closes them.
const QString kBanks = QStringLiteral(R"(
    SELECT tbParametersUser.IDGrp, tbGroupsUser.Name AS DesGrp, tbGroupsUser.Phone,
        tbParametersUser.IDInst, tbInstrumentsUser.Name AS DesInst, tbInstrumentsUser.IDItem, tbInstrumentsUser.Address,
        tbParam.mMemBank, tbInstMem.mStartAddr AS mAddr, tbInstMem.mSize, tbInstMem.mReadCmd, tbInstMem.mWriteCmd
    FROM tbParamLanguage
        INNER JOIN (tbGroupsUser
            INNER JOIN (tbInstrumentsUser
                INNER JOIN ((tbParametersUser
                    INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID)
                    INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID)
                ON (tbInstrumentsUser.IDInst = tbParametersUser.IDInst)
                    AND (tbInstrumentsUser.IDGrp = tbParametersUser.IDGrp))
            ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp)
        ON tbParamLanguage.mID = tbParametersUser.IDPar
    WHERE ((tbParamLanguage.mKeyLang = %1) %2
    GROUP BY tbParametersUser.IDGrp, tbGroupsUser.Name, tbGroupsUser.Phone,
        tbParametersUser.IDInst, tbInstrumentsUser.Name, tbInstrumentsUser.IDItem, tbInstrumentsUser.Address,
        tbParam.mMemBank, tbInstMem.mStartAddr, tbInstMem.mSize, tbInstMem.mReadCmd, tbInstMem.mWriteCmd
    ORDER BY tbParametersUser.IDInst, tbParam.mMemBank;)");

const QString kWriteColumns = QStringLiteral("tbParam.mWriteCmd AS WriteCmdEE, tbParam.mWriteAddr, ");
const QString kChangedOnly = QStringLiteral("AND (tbParametersUser.State = 1) ");

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
    return kParameters.arg(QString(), Compose_SqlText(languageCode), filter);
}

QString writeStatement(const QString& languageCode, const QString& filter)
{
    return kParameters.arg(kWriteColumns, Compose_SqlText(languageCode), kChangedOnly + filter);
}

QString bankStatement(const QString& languageCode, const QString& filter)
{
    return kBanks.arg(Compose_SqlText(languageCode), filter);
}

} // namespace bus
