#pragma once

#include "property/ValueEditor.h"

namespace property {

// A number. One that is longer than its field stands there whole and can't be edited.
class RealEditor : public ValueEditor
{
public:
    using ValueEditor::ValueEditor;
    std::optional<platform::RuntimeError> fill(const std::optional<QString>& value) override;
    void arrange(bool editable) override;
    bool keepsStored() const override { return !fits_; }
    std::optional<NewValue> check() override;

private:
    bool fits_ = true;
};

} // namespace property
