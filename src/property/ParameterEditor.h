#pragma once

#include "property/Editor.h"
#include "property/ValueEditor.h"

namespace property {

// A parameter: what the catalogue says of it, and its value in the fields of its kind.
class ParameterEditor : public Editor
{
public:
    using Editor::Editor;
    QString statement() const override;
    std::optional<platform::RuntimeError> fill(platform::Recordset& rows) override;
    void arrange(bool editable) override;
    void enterList() override;
    bool take(const std::optional<QString>& value) override;
    void tell(Details& details) const override;
    bool update() override;

private:
    void keepEqual() const;
    void showChanged(const std::optional<QString>& value) const;

    bool found_ = false;                 // in the catalogue
    QString standard_;                   // its default there, as lists show it
    std::unique_ptr<ValueEditor> value_; // none for an unknown kind
};

} // namespace property
