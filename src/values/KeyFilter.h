#pragma once

#include <QString>
#include <optional>

namespace values {

// What becomes of a character typed into a field: the text that goes in, none for a key that is dropped with
// a beep. Escape and the editing keys never get here.

// txtVal1 to txtVal3, by the meaning tag and number mask of what is edited.
std::optional<QString> filterNumberKey(const QString& typed, const QString& KeyType, const QString& DP);

// txtValStr1 to txtValStr3: everything in capitals.
QString filterTextKey(const QString& typed);

} // namespace values
