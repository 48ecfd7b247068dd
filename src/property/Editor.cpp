#include "property/Editor.h"

#include "platform/Connection.h"
#include "platform/Words.h"
#include "property/GroupEditor.h"
#include "property/InstrumentEditor.h"
#include "property/ParameterEditor.h"
#include "property/TotalsEditor.h"
#include "session/Session.h"
#include "session/Texts.h"

namespace property {

void EditorBase::show(std::initializer_list<Field> fields) const
{
    for (const Field field : fields)
        (with_.controls.*field).visible = true;
}

void EditorBase::caption(Field label, int text) const
{
    (with_.controls.*label).visible = true;
    (with_.controls.*label).text = with_.texts(text);
}

void EditorBase::allow(std::initializer_list<Field> fields, bool editable) const
{
    for (const Field field : fields)
        (with_.controls.*field).enabled = editable;
}

void Editor::write(const QString& statement) const
{
    if (with_.session.cnDatabase.Execute(statement) == 0)
        platform::failInWords(platform::errors::kNoCurrentRecord, "element.gone", {with_.element.key});
}

std::unique_ptr<Editor> makeEditor(const EditorTools& with)
{
    switch (with.element.ids.Level.toInt()) {
    case structure::kRoot:
        return std::make_unique<RootTotals>(with);
    case structure::kGroup:
        return std::make_unique<GroupEditor>(with);
    case structure::kInstrument:
        return std::make_unique<InstrumentEditor>(with);
    case structure::kParamGroup:
        return std::make_unique<ParamGroupTotals>(with);
    default:
        return std::make_unique<ParameterEditor>(with);
    }
}

void failWithoutRow(const Element& element)
{
    platform::failInWords(platform::errors::kNoCurrentRecord, "element.nodata", {element.key});
}

} // namespace property
