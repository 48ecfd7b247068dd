#pragma once

#include "platform/Forward.h"
#include "property/Controls.h"
#include "session/Forward.h"
#include "structure/Forward.h"
#include "structure/NodeKey.h"

#include <QObject>
#include <optional>

namespace property {

// The dialog that shows and edits one element of the plant, without its window: what stands in each control,
// which of them are shown and editable, and what the operator's gestures do. The window shows controls() and
// hands its events on.
class PropertyModel : public QObject
{
    Q_OBJECT

public:
    PropertyModel(session::Session& session, const session::Texts& texts, platform::Operator& op,
                  structure::Structure& structure);

    // Opens the dialog on the selected item of the list; nothing without one.
    void Property_Item();
    // The same on the selected node of the tree.
    void Property_Node();

    // The same on any element.
    void open(const QString& key);

    // Loads the element that it was opened on; the window calls it before it appears.
    void load();

    const Controls& controls() const { return controls_; }
    const QString& Level() const { return ids_.Level; }
    const QString& IDGrp() const { return ids_.IDGrp; }
    const QString& IDInst() const { return ids_.IDInst; }
    const QString& IDParGrp() const { return ids_.IDParGrp; }
    const QString& IDPar() const { return ids_.IDPar; }
    const QString& KeyType() const { return KeyType_; }
    const QString& DP() const { return DP_; }
    const QString& Unit() const { return Unit_; }
    const QString& IDCopy() const { return IDCopy_; }
    bool Enable() const { return Enable_; }
    double LowLimit() const { return LowLimit_; }
    double HighLimit() const { return HighLimit_; }
    bool Dirty() const { return Dirty_; }
    const QString& SavedText() const { return SavedText_; }

    // The operator's gestures, by the field's name
    // ----------------------------------------------------------------------------
    void enterField(const QString& field); // GotFocus
    // The focus comes back to a field that it was not allowed to leave: it was never gone.
    void keepSavedText(const QString& text);
    // What a typed character puts into the field; none when it is dropped, with a beep.
    std::optional<QString> keyPress(const QString& field, const QString& typed);
    // Escape; false when the field stands as it was entered, and the key is free to close the dialog.
    bool restore(const QString& field);
    // The field's text became another one. It is cut to the field's limit.
    void change(const QString& field, const QString& text);
    // A spin button: one up or down, within its range.
    void spin(const QString& field, int steps);
    void pickEntry(int index);
    void clickDisabled(bool checked);
    // Whether the focus may leave the field.
    bool validate(const QString& field);

    void cmdApply_Click();
    bool cmdOK_Click(); // true when the dialog closes
    void cmdCopy_Click();

    // Procedures
    // ----------------------------------------------------------------------------------------------
    bool Search_Param(const QString& IDPar, QString& Unit, QString& DP, bool& Enable, QString& KeyType,
                      QString& IDCopy);
    int Load_ParamEnum(const QString& IDPar, qint16 Value);
    bool Search_InstMem(const QString& MemBank);
    // Checks what was entered and writes it; true when the statement was run.
    bool Update_Item();

signals:
    void changed();                        // anything in controls()
    void focusWanted(const QString& name); // of a control whose content was rejected

private:
    // A value that passed its checks: none is stored as NULL.
    struct NewValue
    {
        std::optional<QString> stored;
        QString shown;
    };

    void forget();

    // Fill.cpp
    void FillControls_Item();
    [[noreturn]] void failWithoutRow() const;
    void fillRoot(platform::Recordset& rows);
    void fillGroup(const platform::Recordset& row);
    void fillInstrument(const platform::Recordset& row);
    void fillParamGroup(platform::Recordset& rows);
    void fillParameter(const platform::Recordset& row);
    void fillString(const platform::Recordset& row);
    void fillEnum(const platform::Recordset& row);
    void fillReal(const platform::Recordset& row);
    void fillTime(const platform::Recordset& row, int fields);
    QString total(int text, int count) const;

    // Controls by level, kind and right: EnableDisable.cpp
    void EnableDisable_Controls();
    void showParameter();
    void show(std::initializer_list<Control Controls::*> controls);
    void caption(Control Controls::*label, int text);
    void allow(std::initializer_list<Control Controls::*> fields, bool editable);

    // Validation.cpp
    bool isInRange(const QString& text, const SpinButton& spin) const;
    bool refuse(const QString& message, const QString& field = {});
    QString rangeMessage(double low, double high) const;
    std::optional<NewValue> newValue();
    std::optional<NewValue> newEnum();
    std::optional<NewValue> newReal();
    std::optional<NewValue> newHour();
    std::optional<NewValue> newTime(int fields);
    std::optional<NewValue> composedTime(const QString& field);

    // Update.cpp
    bool updateParameter();
    bool updateInstrument();
    bool updateGroup();
    void write(const QString& statement);
    void showNamed(int image);

    Control* fieldNamed(const QString& name);
    void markDirty();
    bool mayModify() const;

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    structure::Structure& structure_;

    Controls controls_;
    structure::KeyParts ids_;
    QString key_;
    QString KeyType_, DP_, Unit_, IDCopy_;
    bool Enable_ = false;
    double LowLimit_ = 0, HighLimit_ = 0;
    bool Dirty_ = false;
    bool filled_ = false; // the fields hold what the company does
    QString SavedText_;
};

} // namespace property
