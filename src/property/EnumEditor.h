#pragma once

#include "property/ValueEditor.h"

namespace property {

// A choice of the catalogue. One whose value is no choice shows none, and can be given one.
class EnumEditor : public ValueEditor
{
public:
    using ValueEditor::ValueEditor;
    std::optional<platform::RuntimeError> fill(const std::optional<QString>& value) override;
    void arrange(bool editable) override;
    void enterList() override;
    std::optional<NewValue> check() override;

private:
    int offer(qint16 value);

    bool offered_ = false; // the choices
};

} // namespace property
