#pragma once

#include <QString>

namespace session {

// The text without halves of characters: what a cut through a surrogate pair leaves behind is no character,
// and no file would give it back.
QString wholeCharacters(QString text);

} // namespace session
