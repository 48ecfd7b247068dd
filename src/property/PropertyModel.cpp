#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Recordset.h"
#include "property/Checks.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "session/WholeCharacters.h"
#include "structure/Structure.h"
#include "values/KeyFilter.h"
#include "values/Numbers.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace property {

using platform::guarded;

namespace {

const std::initializer_list<Control Controls::*> kAlways{&Controls::lblIDPar, &Controls::fraVal,
                                                         &Controls::cmdOK,    &Controls::cmdCancel,
                                                         &Controls::cmdApply, &Controls::cmdCopy};

const NumberField* numberField(const QString& name)
{
    const auto& fields = numberFields();
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const NumberField& field) {
        return name == QLatin1String(field.name);
    });
    return found == fields.end() ? nullptr : &*found;
}

const char* validateName(const NumberField& field)
{
    if (field.text == &Controls::txtVal1)
        return "frmProperty.txtVal1_Validate";
    if (field.text == &Controls::txtVal2)
        return "frmProperty.txtVal2_Validate";
    return "frmProperty.txtVal3_Validate";
}

} // namespace

PropertyModel::PropertyModel(session::Session& session, const session::Texts& texts, platform::Operator& op,
                             structure::Structure& structure)
    : session_(session), texts_(texts), operator_(op), structure_(structure),
      catalogue_(session, controls_), tools_{session,
                                             texts,
                                             structure,
                                             catalogue_,
                                             element_,
                                             controls_,
                                             [this](const QString& message, const char* field) {
                                                 refuse(message, field);
                                             },
                                             [this] { emit changed(); }}
{
}

PropertyModel::~PropertyModel() = default;

// Opening
// ------------------------------------------------------------------------------------------------------------

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
    element_.key = key;
    operator_.showFormModal(QStringLiteral("frmProperty"));
}

void PropertyModel::openWith(const QString& key, const std::optional<QString>& value)
{
    taken_.emplace(value);
    open(key);
    taken_.reset();
}

void PropertyModel::load()
{
    guarded("frmProperty.Load", [&] {
        forget();
        element_.ids = structure::Extract_Key(element_.key);
        editor_ = makeEditor(tools_);
        FillControls_Item();
        const bool taken = takeOver();
        EnableDisable_Controls();
        controls_.cmdApply.enabled = taken;
        Dirty_ = taken;
        emit changed();
    });
}

// The window is a new one each time.
void PropertyModel::forget()
{
    editor_.reset();
    controls_ = {};
    controls_.cmdCopy.enabled = false;
    const QString key = element_.key;
    element_ = {};
    element_.key = key;
    SavedText_.clear();
    filled_ = false;
    Dirty_ = false;
}

void PropertyModel::FillControls_Item()
{
    guarded("frmProperty/FillControls_Item", [&] {
        platform::Recordset rows;
        rows.Open(editor_->statement(), session_.cnDatabase);
        if (rows.Eof()) {
            if (editor_->mayBeEmpty())
                return;
            failWithoutRow(element_);
        }
        const std::optional<platform::RuntimeError> unshown = editor_->fill(rows);
        filled_ = true;
        if (unshown)
            throw *unshown;
    });
}

bool PropertyModel::takeOver()
{
    if (!taken_ || !filled_ || !session::rightOf(session_.CurrentUser.Modify))
        return false;
    return guarded("frmProperty/Take_Over", [&] { return editor_->take(*taken_); });
}

void PropertyModel::EnableDisable_Controls()
{
    guarded("frmProperty/EnableDisable_Controls", [&] {
        for (const NamedControl& named : namedControls())
            (controls_.*named.control).visible = false;
        for (Control Controls::*control : kAlways)
            (controls_.*control).visible = true;
        editor_->arrange(filled_ && session::rightOf(session_.CurrentUser.Modify));
    });
}

Details PropertyModel::details() const
{
    Details told;
    told.title = structure_.tree().captionOf(element_.key);
    const QString above = structure::parentKey(element_.key);
    if (Level() != QLatin1String("0"))
        told.path = structure_.tree().fullPathOf(above);
    if (editor_ && filled_)
        editor_->tell(told);
    return told;
}

// Gestures
// --------------------------------------------------------------------------------------------------------

void PropertyModel::enterField(const QString& field)
{
    if (field == QLatin1String("cbxValEnum") && editor_)
        editor_->enterList();
    else if (const Control* control = fieldNamed(field))
        SavedText_ = control->text;
}

std::optional<QString> PropertyModel::keyPress(const QString& field, const QString& typed)
{
    if (field.startsWith(QLatin1String("txtValStr")))
        return values::filterTextKey(typed);
    const std::optional<QString> accepted = values::filterNumberKey(typed, element_.KeyType, element_.DP);
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
    const qsizetype most = std::max<qsizetype>(control->limit, control->text.size());
    control->text = session::wholeCharacters(control->limit > 0 ? text.left(most) : text);
    control->touched = true;
    markDirty();
}

void PropertyModel::spin(const QString& field, int steps)
{
    const NumberField* number = numberField(field);
    if (!number)
        return;
    const SpinButton& range = controls_.*number->spin;
    const QString& text = (controls_.*number->text).text;
    const double most = std::max(range.Min, range.Max);
    // An empty field starts at the number nearest to zero.
    if (text.isEmpty() || isWrongNumber(text, element_)) {
        change(field, values::toText(std::clamp(0.0, range.Min, most)));
        return;
    }
    const double before = values::toNumber(text);
    const double after = std::clamp(before + steps, range.Min, most);
    if (after != before)
        change(field, values::toText(after));
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

bool PropertyModel::validate(const QString& field)
{
    if (acting_)
        return true;
    const QScopedValueRollback<bool> acting(acting_, true);
    if (field == QLatin1String("cbxValEnum"))
        return controls_.listIndex >= 0;
    const NumberField* number = numberField(field);
    return !number || guarded(validateName(*number), [&] { return isAccepted(*number); });
}

bool PropertyModel::isAccepted(const NumberField& field)
{
    const QString& text = (controls_.*field.text).text;
    const SpinButton& range = controls_.*field.spin;
    if (isWrongNumber(text, element_)) {
        refuse(texts_(kNotNumeric));
        return false;
    }
    if (!text.isEmpty() && !isInRange(text, range)) {
        refuse(rangeMessage(texts_, range.Min, range.Max));
        return false;
    }
    return true;
}

// The focus goes to the field first, so that it stands there when the box has gone.
void PropertyModel::refuse(const QString& message, const char* field)
{
    if (field)
        emit focusWanted(QLatin1String(field));
    operator_.messageBox(message, platform::Buttons::Ok, platform::Icon::Exclamation, session_.AppTitle);
}

// Buttons
// --------------------------------------------------------------------------------------------------------

bool PropertyModel::Update_Item()
{
    return guarded("frmProperty/Update_Item", [&] { return editor_ && editor_->update(); });
}

void PropertyModel::cmdApply_Click()
{
    if (acting_)
        return;
    const QScopedValueRollback<bool> acting(acting_, true);
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
    if (acting_)
        return false;
    const QScopedValueRollback<bool> acting(acting_, true);
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

} // namespace property
