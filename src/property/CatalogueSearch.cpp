#include "property/CatalogueSearch.h"

#include "platform/Guard.h"
#include "platform/Recordset.h"
#include "session/Helpers.h"
#include "session/Session.h"

#include <QStringBuilder>

namespace property {

using platform::guarded;
using platform::Recordset;
using session::Null_To_Value;

namespace {

// The shared recordsets stand wherever somebody left them.
bool findFromStart(Recordset& records, const QString& id)
{
    records.MoveFirst();
    records.Find(QStringLiteral("mID"), id);
    return !records.Eof();
}

QString shownAddress(int address)
{
    const QString digits = QString::number(address, 16).toUpper().rightJustified(4, u'0');
    return QString::number(address) % u" - $" % digits;
}

} // namespace

bool CatalogueSearch::Search_Param(const QString& IDPar, QString& Unit, QString& DP, bool& Enable,
                                   QString& KeyType, QString& IDCopy)
{
    return guarded("frmProperty/Search_Param", [&] {
        Recordset& rsParam = session_.rsParam;
        if (!findFromStart(rsParam, IDPar))
            return false;
        KeyType = rsParam.text("KeyType");
        Unit = Null_To_Value(rsParam["mUnit"]);
        DP = Null_To_Value(rsParam["mDP"]);
        Enable = rsParam.number("mEnable") != 0;
        IDCopy = Null_To_Value(rsParam["mIDCopy"]);
        controls_.lblValDescription.text = rsParam.text("Des");
        controls_.lblValDescription.toolTip = rsParam.text("Des");
        controls_.lblValMemory.text = rsParam.text("mMemBank");
        controls_.lblValAddress.text = shownAddress(rsParam.number("mAddr"));
        controls_.lblValType.text = rsParam.text("mType");
        controls_.lblValBytes.text = rsParam.text("mSize");
        return true;
    });
}

int CatalogueSearch::Load_ParamEnum(const QString& IDPar, qint16 Value)
{
    int index = -1;
    guarded("frmProperty/Load_ParamEnum", [&] {
        Recordset& rsParamEnum = session_.rsParamEnum;
        controls_.entries.clear();
        rsParamEnum.Filter(QStringLiteral("mKeyParam"), IDPar);
        for (; !rsParamEnum.Eof(); rsParamEnum.MoveNext()) {
            controls_.entries.push_back({rsParamEnum.text("mDesc"), rsParamEnum.number("mValue")});
            if (controls_.entries.back().value == Value)
                index = int(controls_.entries.size()) - 1;
        }
    });
    return index;
}

bool CatalogueSearch::Search_InstMem(const QString& MemBank)
{
    return guarded("frmProperty/Search_InstMem", [&] {
        if (!findFromStart(session_.rsInstMem, MemBank))
            return false;
        controls_.lblValMemory.text = session_.rsInstMem.text("mTag");
        return true;
    });
}

} // namespace property
