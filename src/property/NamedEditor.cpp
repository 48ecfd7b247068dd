#include "property/NamedEditor.h"

#include "platform/Recordset.h"
#include "structure/Structure.h"

namespace property {

namespace {

constexpr int kNameLimit = 50;
constexpr int kDescriptionLimit = 255;

} // namespace

void NamedEditor::fillNames(const platform::Recordset& row) const
{
    with_.controls.txtValStr1.text = row.text("Name");
    with_.controls.txtValStr1.limit = kNameLimit;
    with_.controls.txtValStr2.text = row.text("Description");
    with_.controls.txtValStr2.limit = kDescriptionLimit;
}

void NamedEditor::showSaved(const QString& subtext, structure::Image image) const
{
    const QString& name = with_.controls.txtValStr1.text;
    with_.structure.renameNode(with_.element.key, name);
    with_.structure.showItem({with_.element.key, name, subtext, with_.controls.txtValStr2.text, int(image)});
}

} // namespace property
