#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace catalogue {

// A text as an instrument holds it: Latin letters in the lower half, the Cyrillic letters that have no Latin
// look-alike in the upper half, at codes of their own. None when a letter has no code there.
std::optional<QByteArray> instrumentText(const QString& text);

} // namespace catalogue
