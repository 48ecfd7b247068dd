#pragma once

#include "property/Editor.h"
#include "structure/Image.h"

namespace property {

// What a group and an instrument have in common: a name and a description.
class NamedEditor : public Editor
{
public:
    using Editor::Editor;

protected:
    void fillNames(const platform::Recordset& row) const;
    // Tree and list show what was saved; `subtext` is the phone or the address.
    void showSaved(const QString& subtext, structure::Image image) const;
};

} // namespace property
