#pragma once

#include "property/NamedEditor.h"

namespace property {

class GroupEditor : public NamedEditor
{
public:
    using NamedEditor::NamedEditor;
    QString statement() const override;
    std::optional<platform::RuntimeError> fill(platform::Recordset& rows) override;
    void arrange(bool editable) override;
    bool update() override;
};

} // namespace property
