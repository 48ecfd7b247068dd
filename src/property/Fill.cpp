#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "platform/Recordset.h"
#include "session/Helpers.h"
#include "session/Int16.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/NumberMask.h"
#include "values/Numbers.h"
#include "values/TimeText.h"

#include <QStringBuilder>
#include <array>

namespace property {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;
using session::Null_To_Value;

namespace {

constexpr int kNameLimit = 50;
constexpr int kDescriptionLimit = 255;
constexpr int kPhoneLimit = 30;
constexpr int kNumberLimit = 10;
constexpr int kTimeLimit = 2;
constexpr int kHighestAddress = 15;
constexpr int kChanged = 1; // State of a row that is to be written

QString selectionOf(const structure::KeyParts& ids, const QString& languageCode)
{
    const QString instrument = u"(IDGrp = " % ids.IDGrp % u") AND (IDInst = " % ids.IDInst % u") AND ";
    switch (ids.Level.toInt()) {
    case structure::kRoot:
        return QStringLiteral(
            "SELECT IDGrp, Count(IDInst) AS CountIDInst FROM tbInstrumentsUser GROUP BY IDGrp;");
    case structure::kGroup:
        return u"SELECT * FROM tbGroupsUser WHERE (IDGrp = " % ids.IDGrp % u");";
    case structure::kInstrument:
        return u"SELECT tbInstrumentsUser.*, tbInstrumentLanguage.mDesc "
               u"FROM tbInstrumentsUser INNER JOIN tbInstrumentLanguage "
               u"ON tbInstrumentsUser.IDItem = tbInstrumentLanguage.mID "
               u"WHERE ((tbInstrumentsUser.IDGrp = " %
               ids.IDGrp % u") AND (tbInstrumentsUser.IDInst = " % ids.IDInst %
               u") AND (tbInstrumentLanguage.mKeyLang = " % Compose_SqlText(languageCode) % u"));";
    case structure::kParamGroup:
        return u"SELECT * FROM tbParametersUser WHERE (" % instrument % u"(IDParGrp = " %
               Compose_SqlText(ids.IDParGrp) % u"));";
    default:
        return u"SELECT * FROM tbParametersUser WHERE (" % instrument % u"(IDPar = " %
               Compose_SqlText(ids.IDPar) % u"));";
    }
}

// An address without its first character, which is hexadecimal; nothing is 0.
int hexadecimal(const QString& digits)
{
    bool valid = false;
    const int number = digits.toInt(&valid, 16);
    if (!valid && !digits.isEmpty())
        platform::fail(platform::errors::kTypeMismatch,
                       QStringLiteral("'%1' is not a hexadecimal address.").arg(digits));
    return number;
}

values::TimeOfDay timeOfDay(const QString& text)
{
    const auto time = values::parseTime(text);
    if (!time)
        platform::fail(platform::errors::kTypeMismatch,
                       QStringLiteral("'%1' is not a time of day.").arg(text));
    return *time;
}

QString rangeOf(const SpinButton& spin)
{
    return values::toText(spin.Min) % u'-' % values::toText(spin.Max);
}

} // namespace

void PropertyModel::FillControls_Item()
{
    guarded("frmProperty/FillControls_Item", [&] {
        session_.strSQL = selectionOf(ids_, session_.Language.Code);
        Recordset rows; // its own: the bus may be walking the shared one behind the dialog
        rows.Open(session_.strSQL, session_.cnDatabase);
        const int level = ids_.Level.toInt();
        if (rows.Eof()) {
            const bool onlyCounts = level == structure::kRoot || level == structure::kParamGroup;
            return onlyCounts ? void() : failWithoutRow();
        }
        if (level == structure::kRoot)
            fillRoot(rows);
        else if (level == structure::kGroup)
            fillGroup(rows);
        else if (level == structure::kInstrument)
            fillInstrument(rows);
        else if (level == structure::kParamGroup)
            fillParamGroup(rows);
        else
            fillParameter(rows);
        filled_ = true;
    });
}

// What the company or the catalogue no longer holds can't be edited: whatever was typed would replace values
// that nobody saw.
void PropertyModel::failWithoutRow() const
{
    platform::fail(platform::errors::kNoCurrentRecord,
                   QStringLiteral("Company or catalogue hold no data of '%1'.").arg(key_));
}

// A group without instruments has no row here and isn't counted.
void PropertyModel::fillRoot(Recordset& rows)
{
    controls_.lblIDPar.text = structure::kRootKey;
    int instruments = 0;
    for (; !rows.Eof(); rows.MoveNext())
        instruments += rows.number("CountIDInst");
    controls_.lblVal1.text = total(157, rows.RecordCount());
    controls_.lblVal2.text = total(158, instruments);
}

void PropertyModel::fillGroup(const Recordset& row)
{
    controls_.lblIDPar.text = u"GRP_" % ids_.IDGrp;
    controls_.txtValStr1.text = row.text("Name");
    controls_.txtValStr1.limit = kNameLimit;
    controls_.txtValStr2.text = Null_To_Value(row["Description"]);
    controls_.txtValStr2.limit = kDescriptionLimit;
    controls_.txtValStr3.text = Null_To_Value(row["Phone"]);
    controls_.txtValStr3.limit = kPhoneLimit;
}

void PropertyModel::fillInstrument(const Recordset& row)
{
    KeyType_ = QStringLiteral("REAL"); // the address goes by the rules of a number
    DP_ = QStringLiteral("0");
    controls_.lblIDPar.text = u"INST_" % ids_.IDInst;
    controls_.txtValStr1.text = row.text("Name");
    controls_.txtValStr1.limit = kNameLimit;
    controls_.lblValDescription.text = row.text("IDItem") % u" = " % row.text("mDesc");
    controls_.lblValDescription.toolTip = controls_.lblValDescription.text;
    controls_.txtValStr2.text = Null_To_Value(row["Description"]);
    controls_.txtValStr2.limit = kDescriptionLimit;
    controls_.txtVal3.limit = kNumberLimit;
    controls_.updVal3 = {0, kHighestAddress};
    controls_.lblRange3.text = rangeOf(controls_.updVal3);
    // The first character stays hidden and comes back in front of what is saved.
    const QString address = Null_To_Value(row["Address"]);
    controls_.txtVal2.text = address.left(1);
    controls_.txtVal3.text = QString::number(hexadecimal(address.mid(1)));
}

void PropertyModel::fillParamGroup(Recordset& rows)
{
    controls_.lblIDPar.text = ids_.IDParGrp;
    int modified = 0;
    for (; !rows.Eof(); rows.MoveNext())
        modified += rows.number("State") == kChanged;
    controls_.lblVal1.text = total(159, rows.RecordCount());
    controls_.lblVal2.text = total(160, modified);
}

QString PropertyModel::total(int text, int count) const
{
    return texts_(text) % u' ' % values::formatMask(QString::number(count), QStringLiteral("#,##0"));
}

void PropertyModel::fillParameter(const Recordset& row)
{
    controls_.lblIDPar.text = ids_.IDPar;
    session_.DialogOk = Search_Param(ids_.IDPar, Unit_, DP_, Enable_, KeyType_, IDCopy_);
    if (!session_.DialogOk)
        failWithoutRow();
    controls_.cmdCopy.enabled = mayModify() && !IDCopy_.isEmpty();
    session_.DialogOk = Search_InstMem(controls_.lblValMemory.text);
    if (KeyType_ == QLatin1String("STRING"))
        fillString(row);
    else if (KeyType_ == QLatin1String("ENUM"))
        fillEnum(row);
    else if (KeyType_ == QLatin1String("REAL"))
        fillReal(row);
    else if (KeyType_ == QLatin1String("TIME_H"))
        fillTime(row, 1);
    else if (KeyType_ == QLatin1String("TIME_HM"))
        fillTime(row, 2);
    else if (KeyType_ == QLatin1String("TIME_HMS"))
        fillTime(row, 3);
}

void PropertyModel::fillString(const Recordset& row)
{
    const Recordset& rsParam = session_.rsParam;
    controls_.txtValStr1.limit = rsParam.number("mSize");
    controls_.lblRange2.text = texts_(203) % u' ' % rsParam.text("mSize") % u' ' % texts_(204);
    controls_.txtValStr1.text = Null_To_Value(row["Value"]);
}

void PropertyModel::fillEnum(const Recordset& row)
{
    if (row["Value"].isNull())
        platform::fail(platform::errors::kTypeMismatch,
                       QStringLiteral("The parameter %1 has no value yet.").arg(ids_.IDPar));
    controls_.listIndex = Load_ParamEnum(ids_.IDPar, session::toInt16(row.text("Value")));
}

void PropertyModel::fillReal(const Recordset& row)
{
    const Recordset& rsParam = session_.rsParam;
    LowLimit_ = rsParam["mLL"].toDouble();
    HighLimit_ = rsParam["mHL"].toDouble();
    controls_.txtVal1.limit = kNumberLimit;
    controls_.updVal1 = {LowLimit_, HighLimit_};
    controls_.lblRange1.text =
        values::toText(LowLimit_) % u'/' % values::toText(HighLimit_) % u' ' % rsParam.text("mUnit");
    controls_.txtVal1.text = Null_To_Value(row["Value"]);
}

void PropertyModel::fillTime(const Recordset& row, int fields)
{
    constexpr int kFields = 3;
    const std::array<SpinButton, kFields> ranges{{{0, 23}, {0, 59}, {0, 59}}};
    for (int i = 0; i < kFields; ++i) {
        const NumberField& field = numberFields()[i];
        // The whole range stands beside an hour alone, but only the fields' own beside hour and minute.
        if (i < fields || fields == 1)
            (controls_.*field.range).text = rangeOf(ranges[i]);
        if (i < fields) {
            (controls_.*field.text).limit = kTimeLimit;
            controls_.*field.spin = ranges[i];
        } else {
            (controls_.*field.text).text = QStringLiteral("0");
        }
    }
    if (row["Value"].isNull())
        return;
    const values::TimeOfDay time = timeOfDay(row.text("Value"));
    const std::array<int, kFields> numbers{time.hour, time.minute, time.second};
    for (int i = 0; i < fields; ++i)
        (controls_.*numberFields()[i].text).text = QString::number(numbers[i]);
}

} // namespace property
