#include "property/EnumEditor.h"

#include "platform/Words.h"
#include "property/CatalogueSearch.h"
#include "property/Checks.h"
#include "session/Int16.h"
#include "session/Texts.h"

namespace property {

std::optional<platform::RuntimeError> EnumEditor::fill(const std::optional<QString>& value)
{
    const QString& IDPar = with_.element.ids.IDPar;
    try {
        if (!value)
            platform::failInWords(platform::errors::kTypeMismatch, "parameter.novalue", {IDPar});
        with_.controls.listIndex = offer(session::toInt16(*value));
    } catch (const platform::RuntimeError& error) {
        return error;
    }
    return {};
}

void EnumEditor::arrange(bool editable)
{
    show({&Controls::cbxValEnum});
    caption(&Controls::lblVal1, 151);
    allow({&Controls::cbxValEnum}, editable);
}

int EnumEditor::offer(qint16 value)
{
    offered_ = true;
    return with_.catalogue.Load_ParamEnum(with_.element.ids.IDPar, value);
}

// What could not be read as a choice left the list unfilled.
void EnumEditor::enterList()
{
    if (offered_)
        return;
    offer(0);
    with_.changed();
}

std::optional<NewValue> EnumEditor::check()
{
    if (with_.controls.listIndex < 0) {
        with_.refuse(with_.texts(kNotInList), "cbxValEnum");
        return std::nullopt;
    }
    const EnumEntry& entry = with_.controls.entries.at(std::size_t(with_.controls.listIndex));
    return NewValue{QString::number(entry.value)};
}

} // namespace property
