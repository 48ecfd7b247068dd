#include "property/StringEditor.h"

#include "platform/Recordset.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QStringBuilder>

namespace property {

std::optional<platform::RuntimeError> StringEditor::fill(const std::optional<QString>& value)
{
    const platform::Recordset& rsParam = with_.session.rsParam;
    with_.controls.txtValStr1.limit = rsParam.number("mSize");
    with_.controls.lblRange2.text = with_.texts(session::rows::kAtMost) % u' ' % rsParam.text("mSize") %
                                    u' ' % with_.texts(session::rows::kCharacters);
    with_.controls.txtValStr1.text = value.value_or(QString());
    return {};
}

void StringEditor::arrange(bool editable)
{
    show({&Controls::txtValStr1, &Controls::lblRange2});
    caption(&Controls::lblVal1, 151);
    allow({&Controls::txtValStr1}, editable);
}

std::optional<NewValue> StringEditor::check()
{
    const QString& text = with_.controls.txtValStr1.text;
    return NewValue{text.isEmpty() ? std::nullopt : std::optional(text)};
}

} // namespace property
