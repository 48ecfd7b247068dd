#pragma once

#include "property/Controls.h"
#include "property/Element.h"
#include "session/Forward.h"

namespace property {

// Texts of refusals.
constexpr int kNotNumeric = 516;
constexpr int kNotInList = 528;
constexpr int kCheckNumbers = 529;
constexpr int kOutOfRange = 530;

// Whether a text is filled and no number. Where the mask shows commas between the thousands, a comma that was
// typed is no decimal sign: the field would store 1.234 and the list show 1,234.
bool isWrongNumber(const QString& text, const Element& element);

// A numeric text within the range of its spin button.
bool isInRange(const QString& text, const SpinButton& range);

QString rangeMessage(const session::Texts& texts, double low, double high);

// "0-23"
QString rangeOf(const SpinButton& range);

} // namespace property
