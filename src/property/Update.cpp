#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "values/Numbers.h"

#include <QStringBuilder>

namespace property {

using session::Compose_SqlText;
using session::composeTextOrNull;

namespace {

constexpr int kGroupImage = 2;
constexpr int kInstrumentImage = 3;
constexpr int kModifiedImage = 6; // the mark of a parameter that is to be written

} // namespace

bool PropertyModel::Update_Item()
{
    return platform::guarded("frmProperty/Update_Item", [&] {
        switch (ids_.Level.toInt()) {
        case structure::kGroup:
            return updateGroup();
        case structure::kInstrument:
            return updateInstrument();
        case structure::kParameter:
            return updateParameter();
        default:
            return false;
        }
    });
}

bool PropertyModel::updateParameter()
{
    const std::optional<NewValue> value = newValue();
    if (!value)
        return false;
    write(u"UPDATE tbParametersUser SET [Value] = " %
          (value->stored ? Compose_SqlText(*value->stored) : QStringLiteral("NULL")) %
          u", State = 1 WHERE ((IDGrp = " % ids_.IDGrp % u") AND (IDInst = " % ids_.IDInst %
          u") AND (IDPar = " % Compose_SqlText(ids_.IDPar) % u"));");
    if (const structure::ListItem* shown = structure_.list().item(key_)) {
        structure::ListItem item = *shown;
        item.subtext = value->shown;
        item.icon = kModifiedImage;
        structure_.showItem(item);
    }
    return true;
}

bool PropertyModel::updateInstrument()
{
    static const QString kField = QStringLiteral("txtVal3");
    const QString& number = controls_.txtVal3.text;
    const SpinButton& spin = controls_.updVal3;
    if (!values::isNumeric(number))
        return refuse(texts_(516), kField);
    if (!isInRange(number, spin))
        return refuse(rangeMessage(spin.Min, spin.Max), kField);

    const int digit = values::toInteger(values::toNumber(number));
    controls_.txtValStr3.text = controls_.txtVal2.text % QString::number(digit, 16).toUpper();
    write(u"UPDATE tbInstrumentsUser SET Name = " % Compose_SqlText(controls_.txtValStr1.text) %
          u", Description = " % composeTextOrNull(controls_.txtValStr2.text) % u", Address = " %
          Compose_SqlText(controls_.txtValStr3.text) % u" WHERE ((IDGrp = " % ids_.IDGrp %
          u") AND (IDInst = " % ids_.IDInst % u"));");
    showNamed(kInstrumentImage);
    return true;
}

bool PropertyModel::updateGroup()
{
    write(u"UPDATE tbGroupsUser SET Name = " % Compose_SqlText(controls_.txtValStr1.text) %
          u", Description = " % composeTextOrNull(controls_.txtValStr2.text) % u", Phone = " %
          composeTextOrNull(controls_.txtValStr3.text) % u" WHERE (IDGrp = " % ids_.IDGrp % u");");
    showNamed(kGroupImage);
    return true;
}

// An element that somebody removed meanwhile takes no change: nothing may be shown that isn't in the company.
void PropertyModel::write(const QString& statement)
{
    session_.strSQL = statement;
    if (session_.cnDatabase.Execute(session_.strSQL) == 0)
        platform::fail(platform::errors::kNoCurrentRecord,
                       QStringLiteral("The element '%1' is no longer in the company.").arg(key_));
}

// txtValStr3 holds the phone or, composed, the address.
void PropertyModel::showNamed(int image)
{
    structure_.renameNode(key_, controls_.txtValStr1.text);
    structure_.showItem(
        {key_, controls_.txtValStr1.text, controls_.txtValStr3.text, controls_.txtValStr2.text, image});
}

} // namespace property
