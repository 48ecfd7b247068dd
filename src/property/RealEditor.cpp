#include "property/RealEditor.h"

#include "platform/Recordset.h"
#include "property/Checks.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/HalfDegree.h"
#include "values/Numbers.h"

#include <QStringBuilder>

namespace property {

namespace {

constexpr int kNumberLimit = 10;

} // namespace

std::optional<platform::RuntimeError> RealEditor::fill(const std::optional<QString>& value)
{
    const platform::Recordset& rsParam = with_.session.rsParam;
    Element& element = with_.element;
    Controls& controls = with_.controls;
    element.LowLimit = rsParam["mLL"].toDouble();
    element.HighLimit = rsParam["mHL"].toDouble();
    controls.txtVal1.limit = kNumberLimit;
    controls.updVal1 = {element.LowLimit, element.HighLimit};
    controls.lblRange1.text = values::toText(element.LowLimit) % u'/' % values::toText(element.HighLimit) %
                              u' ' % rsParam.text("mUnit");
    controls.txtVal1.text = value.value_or(QString());
    fits_ = controls.txtVal1.text.size() <= kNumberLimit;
    return {};
}

void RealEditor::arrange(bool editable)
{
    show({&Controls::txtVal1, &Controls::lblRange1});
    caption(&Controls::lblVal1, 151);
    allow({&Controls::txtVal1}, editable && fits_);
}

std::optional<NewValue> RealEditor::check()
{
    const Element& element = with_.element;
    QString& text = with_.controls.txtVal1.text;
    if (isWrongNumber(text, element)) {
        with_.refuse(with_.texts(kNotNumeric), "txtVal1");
        return std::nullopt;
    }
    if (text.isEmpty())
        return NewValue{};
    text = values::toText(values::toNumber(text));
    with_.changed();
    const double number = values::toNumber(text);
    if (number < element.LowLimit || number > element.HighLimit) {
        with_.refuse(rangeMessage(with_.texts, element.LowLimit, element.HighLimit), "txtVal1");
        return std::nullopt;
    }
    text = values::toText(values::halfDegreeRule(number, element.Unit));
    with_.changed();
    return NewValue{text};
}

} // namespace property
