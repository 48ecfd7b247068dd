#pragma once

#include "property/Editor.h"

namespace property {

// A value that passed its checks: none is stored as NULL.
struct NewValue
{
    std::optional<QString> stored;
};

// The fields in which a parameter's value stands, by its kind.
class ValueEditor : public EditorBase
{
public:
    using EditorBase::EditorBase;

    // None is NULL. The result tells why a field could not show the value and stays empty.
    virtual std::optional<platform::RuntimeError> fill(const std::optional<QString>& value) = 0;
    virtual void arrange(bool editable) = 0;
    virtual void enterList() {}
    // Whether the fields don't hold the value that the company does, and nobody put another in.
    virtual bool keepsStored() const { return false; }
    // None when something was refused.
    virtual std::optional<NewValue> check() = 0;
};

// None for an unknown kind.
std::unique_ptr<ValueEditor> makeValueEditor(const EditorTools& with);

} // namespace property
