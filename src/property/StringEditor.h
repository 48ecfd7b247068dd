#pragma once

#include "property/ValueEditor.h"

namespace property {

class StringEditor : public ValueEditor
{
public:
    using ValueEditor::ValueEditor;
    std::optional<platform::RuntimeError> fill(const std::optional<QString>& value) override;
    void arrange(bool editable) override;
    std::optional<NewValue> check() override;
};

} // namespace property
