#pragma once

#include <QString>

namespace values {

// A number text shown through a mask such as "0", "0.0" or "#,##0": "0" shows a digit always, "#" only where
// one stands, "," in the whole part groups by three, "." starts the decimals. Rounds half away from zero, on
// the decimal text of 15 digits. A value that rounds to zero has no sign.
//
// A text that isn't numeric comes back as it stands; a mask of any other characters, or none, shows the
// number's own text.
QString formatMask(const QString& value, const QString& mask);

// Whether what the mask shows has commas between its thousands.
bool groupsDigits(const QString& mask);

} // namespace values
