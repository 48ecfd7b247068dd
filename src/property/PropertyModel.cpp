#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "values/KeyFilter.h"
#include "values/Numbers.h"

#include <algorithm>

namespace property {

using platform::guarded;

PropertyModel::PropertyModel(session::Session& session, const session::Texts& texts, platform::Operator& op,
                             structure::Structure& structure)
    : session_(session), texts_(texts), operator_(op), structure_(structure)
{
}

void PropertyModel::Property_Item()
{
    guarded("Module/Property_Item", [&] { open(structure_.selectedItem()); });
}

void PropertyModel::Property_Node()
{
    guarded("frmTreeBus/Property_Node", [&] { open(structure_.selectedNode()); });
}

void PropertyModel::open(const QString& key)
{
    if (key.isEmpty())
        return;
    key_ = key;
    operator_.showFormModal(QStringLiteral("frmProperty"));
}

void PropertyModel::load()
{
    guarded("frmProperty.Load", [&] {
        forget();
        ids_ = structure::Extract_Key(key_);
        FillControls_Item();
        EnableDisable_Controls();
        controls_.cmdApply.enabled = false;
        Dirty_ = false;
        emit changed();
    });
}

// The window is a new one each time.
void PropertyModel::forget()
{
    controls_ = {};
    controls_.cmdCopy.enabled = false;
    filled_ = false;
    ids_ = {};
    for (QString* text : {&KeyType_, &DP_, &Unit_, &IDCopy_, &SavedText_})
        text->clear();
    Enable_ = false;
    LowLimit_ = HighLimit_ = 0;
    Dirty_ = false;
}

// Gestures
// --------------------------------------------------------------------------------------------------------

void PropertyModel::enterField(const QString& field)
{
    if (const Control* control = fieldNamed(field))
        SavedText_ = control->text;
}

std::optional<QString> PropertyModel::keyPress(const QString& field, const QString& typed)
{
    if (field.startsWith(QLatin1String("txtValStr")))
        return values::filterTextKey(typed);
    const std::optional<QString> accepted = values::filterNumberKey(typed, KeyType_, DP_);
    if (!accepted)
        operator_.beep();
    return accepted;
}

void PropertyModel::keepSavedText(const QString& text)
{
    SavedText_ = text;
}

bool PropertyModel::restore(const QString& field)
{
    const Control* control = fieldNamed(field);
    if (!control || control->text == SavedText_)
        return false;
    change(field, SavedText_);
    return true;
}

void PropertyModel::change(const QString& field, const QString& text)
{
    Control* control = fieldNamed(field);
    if (!control)
        return;
    QString kept = control->limit > 0 ? text.left(control->limit) : text;
    // Half a character would be no character.
    if (kept.size() < text.size() && !kept.isEmpty() && kept.back().isHighSurrogate())
        kept.chop(1);
    control->text = kept;
    markDirty();
}

void PropertyModel::spin(const QString& field, int steps)
{
    for (const NumberField& number : numberFields()) {
        if (field != QLatin1String(number.name))
            continue;
        const SpinButton& range = controls_.*number.spin;
        const QString& text = (controls_.*number.text).text;
        // An empty field starts at the number nearest to zero.
        const double wanted = values::isNumeric(text) ? values::toNumber(text) + steps : 0;
        const double most = std::max(range.Min, range.Max);
        change(field, values::toText(std::clamp(wanted, range.Min, most)));
    }
}

void PropertyModel::pickEntry(int index)
{
    controls_.listIndex = index;
    markDirty();
}

void PropertyModel::clickDisabled(bool checked)
{
    controls_.checked = checked;
    markDirty();
}

void PropertyModel::markDirty()
{
    Dirty_ = true;
    controls_.cmdApply.enabled = true;
    emit changed();
}

void PropertyModel::cmdApply_Click()
{
    guarded("frmProperty.cmdApply_Click", [&] {
        if (!Dirty_ || !Update_Item())
            return;
        controls_.cmdApply.enabled = false;
        Dirty_ = false;
        emit changed();
    });
}

bool PropertyModel::cmdOK_Click()
{
    return guarded("frmProperty.cmdOk_Click", [&] { return !Dirty_ || Update_Item(); });
}

void PropertyModel::cmdCopy_Click()
{
    guarded("frmProperty.cmdCopy_Click", [&] { operator_.showFormModal(QStringLiteral("frmPropertyCopy")); });
}

Control* PropertyModel::fieldNamed(const QString& name)
{
    for (const NamedControl& named : namedControls()) {
        if (name == QLatin1String(named.name))
            return &(controls_.*named.control);
    }
    return nullptr;
}

bool PropertyModel::mayModify() const
{
    return session::rightOf(session_.CurrentUser.Modify);
}

} // namespace property
