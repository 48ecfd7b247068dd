#pragma once

#include "property/CatalogueSearch.h"
#include "property/Controls.h"
#include "property/Editor.h"
#include "property/Element.h"

#include <QObject>
#include <optional>

namespace property {

// The dialog that shows and edits one element of the plant, without its window: what stands in each control,
// which of them are shown and editable, and what the operator's gestures do. The window shows controls() and
// hands its events on. What is special to a kind of element is its editor's.
class PropertyModel : public QObject
{
    Q_OBJECT

public:
    PropertyModel(session::Session& session, const session::Texts& texts, platform::Operator& op,
                  structure::Structure& structure);
    ~PropertyModel() override;

    // Opens the dialog on the selected item of the list; nothing without one.
    void Property_Item();
    // The same on the selected node of the tree.
    void Property_Node();
    // The same on any element.
    void open(const QString& key);
    // The same on a parameter, with a value of old in its field. Nothing is written before the operator says
    // so.
    void openWith(const QString& key, const std::optional<QString>& value);

    // Loads the element that it was opened on; the window calls it before it appears.
    void load();

    const Controls& controls() const { return controls_; }
    // What is told beside them.
    Details details() const;
    const QString& Level() const { return element_.ids.Level; }
    const QString& IDGrp() const { return element_.ids.IDGrp; }
    const QString& IDInst() const { return element_.ids.IDInst; }
    const QString& IDParGrp() const { return element_.ids.IDParGrp; }
    const QString& IDPar() const { return element_.ids.IDPar; }
    const QString& KeyType() const { return element_.KeyType; }
    const QString& DP() const { return element_.DP; }
    const QString& Unit() const { return element_.Unit; }
    const QString& IDCopy() const { return element_.IDCopy; }
    bool Enable() const { return element_.Enable; }
    double LowLimit() const { return element_.LowLimit; }
    double HighLimit() const { return element_.HighLimit; }
    bool Dirty() const { return Dirty_; }
    const QString& SavedText() const { return SavedText_; }
    CatalogueSearch& catalogue() { return catalogue_; }

    // The operator's gestures, by the field's name
    // ----------------------------------------------------------------------------
    void enterField(const QString& field); // GotFocus
    // The focus comes back to a field that it was not allowed to leave: it was never gone.
    void keepSavedText(const QString& text);
    // What a typed character puts into the field; none when it is dropped, with a beep.
    std::optional<QString> keyPress(const QString& field, const QString& typed);
    // Escape; false when the field stands as it was entered, and the key is free to close the dialog.
    bool restore(const QString& field);
    // The field's text became another one. It is cut to the field's limit; what was longer when it was loaded
    // may stay so long.
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

    // Checks what was entered and writes it; true when it is in the company.
    bool Update_Item();

signals:
    void changed();                        // anything in controls()
    void focusWanted(const QString& name); // of a control whose content was rejected

private:
    void forget();
    void FillControls_Item();
    void EnableDisable_Controls();
    bool takeOver();
    bool isAccepted(const NumberField& field);
    void refuse(const QString& message, const char* field = nullptr);
    Control* fieldNamed(const QString& name);
    void markDirty();

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    structure::Structure& structure_;

    Controls controls_;
    Element element_;
    CatalogueSearch catalogue_;
    EditorTools tools_;
    std::unique_ptr<Editor> editor_;
    bool Dirty_ = false;
    bool filled_ = false;                         // the fields hold what the company does
    std::optional<std::optional<QString>> taken_; // waits for the window; the inner none is NULL
    bool acting_ = false; // a gesture is being carried out; behind its box no other one is
    QString SavedText_;
};

} // namespace property
