#pragma once

#include "property/Editor.h"

namespace property {

// The root and a parameter group have totals to show and nothing to save.
class TotalsEditor : public Editor
{
public:
    using Editor::Editor;
    bool mayBeEmpty() const override { return true; }
    void arrange(bool editable) override;
    bool update() override { return false; }

protected:
    QString total(int text, int count) const;
};

class RootTotals : public TotalsEditor
{
public:
    using TotalsEditor::TotalsEditor;
    QString statement() const override;
    std::optional<platform::RuntimeError> fill(platform::Recordset& rows) override;
};

class ParamGroupTotals : public TotalsEditor
{
public:
    using TotalsEditor::TotalsEditor;
    QString statement() const override;
    std::optional<platform::RuntimeError> fill(platform::Recordset& rows) override;
};

} // namespace property
