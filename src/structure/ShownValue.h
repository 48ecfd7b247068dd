#pragma once

#include "session/Forward.h"

#include <QString>
#include <optional>

namespace structure {

// What a list shows for a stored value of a parameter (none is one that isn't known). One that the catalogue
// has no words for is shown as it is stored. Never raises.
QString shownValue(const session::Session& session, const QString& IDPar,
                   const std::optional<QString>& value);

// What a parameter is called; `otherwise` where the catalogue has no words for it. Never raises.
QString parameterName(const session::Session& session, const QString& IDPar, const QString& otherwise);

// The words of a value that is a number in the instrument and has words in the catalogue; "" for any other.
QString choiceWords(const session::Session& session, const QString& IDPar, const QString& value);

} // namespace structure
