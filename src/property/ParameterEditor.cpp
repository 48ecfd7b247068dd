#include "property/ParameterEditor.h"

#include "platform/Recordset.h"
#include "property/CatalogueSearch.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/Image.h"
#include "structure/ShownValue.h"
#include "structure/Structure.h"
#include "values/Display.h"
#include "values/Numbers.h"
#include "values/ParamState.h"
#include "values/ValueCause.h"

#include <QStringBuilder>

namespace property {

using session::Compose_SqlText;

QString ParameterEditor::statement() const
{
    const structure::KeyParts& ids = with_.element.ids;
    return QStringLiteral(
               "SELECT * FROM tbParametersUser WHERE ((IDGrp = %1) AND (IDInst = %2) AND (IDPar = %3));")
        .arg(ids.IDGrp, ids.IDInst, Compose_SqlText(ids.IDPar));
}

std::optional<platform::RuntimeError> ParameterEditor::fill(platform::Recordset& row)
{
    Element& element = with_.element;
    Controls& controls = with_.controls;
    controls.lblIDPar.text = element.ids.IDPar;
    if (!with_.catalogue.Search_Param(element.ids.IDPar, element.Unit, element.DP, element.Enable,
                                      element.KeyType, element.IDCopy))
        failWithoutRow(element);
    found_ = true;
    controls.cmdCopy.enabled =
        session::rightOf(with_.session.CurrentUser.Modify) && !element.IDCopy.isEmpty();
    with_.catalogue.Search_InstMem(controls.lblValMemory.text);
    if (const auto standard = with_.session.rsParam.optionalText("mDftValue"))
        standard_ = structure::shownValue(with_.session, element.ids.IDPar, standard);
    value_ = makeValueEditor(with_);
    return value_ ? value_->fill(row.optionalText("Value")) : std::nullopt;
}

void ParameterEditor::arrange(bool editable)
{
    show({&Controls::chkDisabled, &Controls::lblDisabled, &Controls::fraProperties,
          &Controls::lblValDescription, &Controls::lblMemory, &Controls::lblValMemory, &Controls::lblAddress,
          &Controls::lblValAddress, &Controls::lblType, &Controls::lblValType, &Controls::lblBytes,
          &Controls::lblValBytes});
    with_.controls.checked = !with_.element.Enable;
    with_.controls.chkDisabled.enabled = found_;
    if (value_)
        value_->arrange(editable && with_.element.Enable);
}

void ParameterEditor::enterList()
{
    if (value_)
        value_->enterList();
}

bool ParameterEditor::take(const std::optional<QString>& value)
{
    if (!value_ || !with_.element.Enable)
        return false;
    if (const std::optional<platform::RuntimeError> unshown = value_->fill(value))
        throw *unshown;
    return true;
}

void ParameterEditor::tell(Details& details) const
{
    const Element& element = with_.element;
    details.title = with_.controls.lblValDescription.text;
    if (!found_)
        return;
    if (values::kindOf(element.KeyType) == values::Kind::Real) {
        details.unit = element.Unit;
        details.limits = QString(values::toText(element.LowLimit) % QStringLiteral(" ... ") %
                                 values::toText(element.HighLimit) % u' ' % element.Unit)
                             .trimmed();
    }
    details.standard = standard_;
}

bool ParameterEditor::update()
{
    if (!value_)
        return false;
    if (value_->keepsStored())
        return true;
    const std::optional<NewValue> value = value_->check();
    if (!value)
        return false;
    static const QString kStatement = QStringLiteral(
        R"(UPDATE tbParametersUser
           SET [Value] = %1, State = 1
           WHERE ((IDGrp = %2) AND (IDInst = %3) AND (IDPar = %4));)");
    const structure::KeyParts& ids = with_.element.ids;
    const values::Causing causing(with_.session.cnDatabase, values::ValueCause::Edited);
    keepEqual();
    write(kStatement.arg(value->stored ? Compose_SqlText(*value->stored) : QStringLiteral("NULL"), ids.IDGrp,
                         ids.IDInst, Compose_SqlText(ids.IDPar)));
    showChanged(value->stored);
    return true;
}

// The value that goes is what the instrument holds, as far as anybody knows: it can be taken back.
void ParameterEditor::keepEqual() const
{
    platform::Recordset row;
    row.Open(statement(), with_.session.cnDatabase);
    if (!row.Eof() && row.number("State") == int(values::ParamState::Equal))
        with_.structure.memory().keepEqual(with_.element.ids, row.text("Value"));
}

void ParameterEditor::showChanged(const std::optional<QString>& value) const
{
    const structure::ListItem* shown = with_.structure.list().item(with_.element.key);
    if (!shown)
        return;
    const auto chosen = [this](const QString&) {
        return with_.controls.entries.at(std::size_t(with_.controls.listIndex)).text;
    };
    structure::ListItem item = *shown;
    item.subtext = values::displayTyped(
        value, {values::kindOf(with_.element.KeyType), with_.element.DP, with_.element.Unit}, chosen);
    item.icon = int(structure::Image::ParameterChanged);
    with_.structure.showItem(item);
}

} // namespace property
