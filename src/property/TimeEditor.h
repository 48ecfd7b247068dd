#pragma once

#include "property/ValueEditor.h"

#include <vector>

namespace property {

// A time of day in one, two or three fields. What a kind doesn't edit stands at 0.
class TimeEditor : public ValueEditor
{
public:
    explicit TimeEditor(const EditorTools& with);
    std::optional<platform::RuntimeError> fill(const std::optional<QString>& value) override;
    void arrange(bool editable) override;
    bool keepsStored() const override;
    std::optional<NewValue> check() override;

private:
    bool isEmpty() const;
    bool areNumbers() const;
    bool areInRange() const;
    bool isAccepted() const;
    bool isHourAccepted() const;
    const QString& text(const NumberField& field) const { return (with_.controls.*field.text).text; }
    const char* lastField() const { return fields_.back().name; }

    std::vector<NumberField> fields_; // those that are edited
    bool shown_ = true;
};

} // namespace property
