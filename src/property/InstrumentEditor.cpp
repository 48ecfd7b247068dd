#include "property/InstrumentEditor.h"

#include "platform/Recordset.h"
#include "platform/Words.h"
#include "property/Checks.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/Numbers.h"

#include <QStringBuilder>

namespace property {

using session::Compose_SqlText;

namespace {

constexpr int kAddressLimit = 10;
constexpr int kHighestDigit = 15;

} // namespace

QString InstrumentEditor::statement() const
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbInstrumentsUser.*, tbInstrumentLanguage.mDesc
           FROM tbInstrumentsUser
                INNER JOIN tbInstrumentLanguage ON tbInstrumentsUser.IDItem = tbInstrumentLanguage.mID
           WHERE ((tbInstrumentsUser.IDGrp = %1)
              AND (tbInstrumentsUser.IDInst = %2)
              AND (tbInstrumentLanguage.mKeyLang = %3));)");
    return kStatement.arg(with_.element.ids.IDGrp, with_.element.ids.IDInst,
                          Compose_SqlText(with_.session.Language.Code));
}

std::optional<platform::RuntimeError> InstrumentEditor::fill(platform::Recordset& row)
{
    with_.element.KeyType = QStringLiteral("REAL");
    with_.element.DP = QStringLiteral("0");
    Controls& controls = with_.controls;
    controls.lblIDPar.text = u"INST_" % with_.element.ids.IDInst;
    fillNames(row);
    controls.lblValDescription.text = row.text("IDItem") % u" = " % row.text("mDesc");
    controls.lblValDescription.toolTip = controls.lblValDescription.text;
    return fillAddress(row.text("Address"));
}

std::optional<platform::RuntimeError> InstrumentEditor::fillAddress(const QString& address)
{
    Controls& controls = with_.controls;
    controls.txtVal3.limit = kAddressLimit;
    controls.updVal3 = {0, kHighestDigit};
    controls.lblRange3.text = rangeOf(controls.updVal3);
    controls.txtVal2.text = address.left(1);
    storedAddress_ = address;
    const QString digits = address.mid(1);
    bool hexadecimal = digits.isEmpty();
    const int number = hexadecimal ? 0 : digits.toInt(&hexadecimal, 16);
    addressShown_ = hexadecimal;
    if (!hexadecimal)
        return platform::RuntimeError(platform::errors::kTypeMismatch,
                                      platform::inWords("value.noaddress", {address}));
    controls.txtVal3.text = QString::number(number);
    return {};
}

void InstrumentEditor::arrange(bool editable)
{
    show({&Controls::txtValStr1, &Controls::txtValStr2, &Controls::txtVal3, &Controls::lblRange3,
          &Controls::fraProperties, &Controls::lblValDescription});
    caption(&Controls::lblVal1, 155);
    caption(&Controls::lblVal2, 147);
    caption(&Controls::lblVal3, 2);
    allow({&Controls::txtValStr1, &Controls::txtValStr2, &Controls::txtVal3}, editable);
}

bool InstrumentEditor::isAddressAccepted() const
{
    const QString& digit = with_.controls.txtVal3.text;
    const SpinButton& range = with_.controls.updVal3;
    if (!values::isNumeric(digit)) {
        with_.refuse(with_.texts(kNotNumeric), "txtVal3");
        return false;
    }
    if (!isInRange(digit, range)) {
        with_.refuse(rangeMessage(with_.texts, range.Min, range.Max), "txtVal3");
        return false;
    }
    return true;
}

QString InstrumentEditor::wholeAddress() const
{
    const Controls& controls = with_.controls;
    const int digit = values::toInteger(values::toNumber(controls.txtVal3.text));
    return controls.txtVal2.text % QString::number(digit, 16).toUpper();
}

void InstrumentEditor::tell(Details& details) const
{
    const QString& digit = with_.controls.txtVal3.text;
    if (keepsAddress() || !values::isNumeric(digit) || !isInRange(digit, with_.controls.updVal3))
        return;
    details.wholeAddress = wholeAddress();
    if (const QString others = sharers(details.wholeAddress); !others.isEmpty())
        details.warning =
            with_.texts.own(QStringLiteral("property.address.shared")).arg(details.wholeAddress, others);
}

// The other instruments of the group that answer to the address.
QString InstrumentEditor::sharers(const QString& address) const
{
    const structure::KeyParts& ids = with_.element.ids;
    QStringList names;
    try {
        platform::Recordset rows;
        rows.Open(QStringLiteral(R"(SELECT Name FROM tbInstrumentsUser
                                    WHERE ((IDGrp = %1) AND (IDInst <> %2) AND (Upper(Address) = %3))
                                    ORDER BY Name;)")
                      .arg(ids.IDGrp, ids.IDInst, Compose_SqlText(address)),
                  with_.session.cnDatabase);
        for (; !rows.Eof(); rows.MoveNext())
            names << rows.text("Name");
    } catch (const platform::RuntimeError&) {
        // A warning that can't be given; what is saved fails in its own name.
    }
    return names.join(QStringLiteral(", "));
}

bool InstrumentEditor::update()
{
    static const QString kStatement = QStringLiteral(
        R"(UPDATE tbInstrumentsUser
           SET Name = %1, Description = %2, Address = %3
           WHERE ((IDGrp = %4) AND (IDInst = %5));)");
    Controls& controls = with_.controls;
    if (keepsAddress()) {
        controls.txtValStr3.text = storedAddress_;
    } else {
        if (!isAddressAccepted())
            return false;
        controls.txtValStr3.text = wholeAddress();
    }
    write(kStatement.arg(
        Compose_SqlText(controls.txtValStr1.text), session::composeTextOrNull(controls.txtValStr2.text),
        Compose_SqlText(controls.txtValStr3.text), with_.element.ids.IDGrp, with_.element.ids.IDInst));
    showSaved(controls.txtValStr3.text, structure::Image::Instrument);
    return true;
}

} // namespace property
