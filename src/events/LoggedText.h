#pragma once

#include <QString>

namespace events {

// How many characters of a name a log line holds.
inline constexpr int kLoggedNameWidth = 50;

// A text as a log file holds it: one byte a character, what the code page lacks is "?", what would end the
// line gives a blank.
QString loggedText(const QString& text, int codePage);

} // namespace events
