#include "property/TimeEditor.h"

#include "platform/Words.h"
#include "property/Checks.h"
#include "session/Texts.h"
#include "values/Kind.h"
#include "values/Numbers.h"
#include "values/TimeText.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>

namespace property {

namespace {

constexpr int kFields = 3;
constexpr int kTimeLimit = 2;

std::size_t editedFields(const QString& KeyType)
{
    switch (values::kindOf(KeyType)) {
    case values::Kind::TimeH:
        return 1;
    case values::Kind::TimeHM:
        return 2;
    default:
        return kFields;
    }
}

} // namespace

TimeEditor::TimeEditor(const EditorTools& with)
    : ValueEditor(with),
      fields_(numberFields().begin(), numberFields().begin() + int(editedFields(with.element.KeyType)))
{
}

std::optional<platform::RuntimeError> TimeEditor::fill(const std::optional<QString>& value)
{
    const std::array<SpinButton, kFields> ranges{{{0, 23}, {0, 59}, {0, 59}}};
    for (std::size_t i = 0; i < kFields; ++i) {
        const NumberField& field = numberFields()[i];
        // The whole range stands beside an hour alone, but only the fields' own beside hour and minute.
        if (i < fields_.size() || fields_.size() == 1)
            (with_.controls.*field.range).text = rangeOf(ranges[i]);
        if (i < fields_.size()) {
            (with_.controls.*field.text).limit = kTimeLimit;
            with_.controls.*field.spin = ranges[i];
        } else {
            (with_.controls.*field.text).text = QStringLiteral("0");
        }
    }
    if (!value)
        return {};
    const std::optional<values::TimeOfDay> time = values::parseTime(*value);
    shown_ = time.has_value();
    if (!time)
        return platform::RuntimeError(platform::errors::kTypeMismatch,
                                      platform::inWords("value.notime", {*value}));
    const std::array<int, kFields> numbers{time->hour, time->minute, time->second};
    for (std::size_t i = 0; i < fields_.size(); ++i)
        (with_.controls.*fields_[i].text).text = QString::number(numbers[i]);
    return {};
}

void TimeEditor::arrange(bool editable)
{
    show({&Controls::txtVal1, &Controls::txtVal2, &Controls::txtVal3, &Controls::lblRange1,
          &Controls::lblRange2, &Controls::lblRange3});
    caption(&Controls::lblVal1, 152);
    caption(&Controls::lblVal2, 153);
    caption(&Controls::lblVal3, 154);
    allow({&Controls::txtVal1, &Controls::txtVal2, &Controls::txtVal3}, false);
    for (const NumberField& field : fields_)
        allow({field.text}, editable);
}

bool TimeEditor::keepsStored() const
{
    return !shown_ && std::none_of(fields_.begin(), fields_.end(), [this](const NumberField& field) {
        return (with_.controls.*field.text).touched;
    });
}

std::optional<NewValue> TimeEditor::check()
{
    if (isEmpty())
        return NewValue{};
    if (!(fields_.size() == 1 ? isHourAccepted() : isAccepted()))
        return std::nullopt;
    const Controls& controls = with_.controls;
    const QString composed =
        controls.txtVal1.text % u':' % controls.txtVal2.text % u':' % controls.txtVal3.text;
    // Numbers such as "1.5" or "1e1" are in range and make no time of day all the same.
    if (!values::parseTime(composed)) {
        with_.refuse(with_.texts(kCheckNumbers), lastField());
        return std::nullopt;
    }
    return NewValue{values::normalizeTime(composed)};
}

// An hour alone is refused with the words of a number.
bool TimeEditor::isHourAccepted() const
{
    const SpinButton& range = with_.controls.updVal1;
    if (!areNumbers())
        with_.refuse(with_.texts(kNotNumeric), lastField());
    else if (!areInRange())
        with_.refuse(rangeMessage(with_.texts, range.Min, range.Max), lastField());
    else
        return true;
    return false;
}

// Two or three fields are filled together or empty together.
bool TimeEditor::isAccepted() const
{
    if (!areNumbers())
        with_.refuse(with_.texts(kCheckNumbers), lastField());
    else if (!areInRange())
        with_.refuse(with_.texts(kOutOfRange), lastField());
    else
        return true;
    return false;
}

bool TimeEditor::isEmpty() const
{
    return std::all_of(fields_.begin(), fields_.end(),
                       [this](const NumberField& field) { return text(field).isEmpty(); });
}

bool TimeEditor::areNumbers() const
{
    return std::all_of(fields_.begin(), fields_.end(),
                       [this](const NumberField& field) { return values::isNumeric(text(field)); });
}

bool TimeEditor::areInRange() const
{
    return std::all_of(fields_.begin(), fields_.end(), [this](const NumberField& field) {
        return isInRange(text(field), with_.controls.*field.spin);
    });
}

} // namespace property
