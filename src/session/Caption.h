#pragma once

#include "session/Forward.h"

#include <QString>

namespace session {

// The main window's caption: the program's title and, while a company is open, its name.
QString mainCaption(const Session& session, const Texts& texts);

} // namespace session
