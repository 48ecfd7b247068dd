#pragma once

#include "session/Forward.h"

#include <QString>

namespace session {

// The main window's: the program, the company that is open, the operator who works with it.
QString mainCaption(const Session& session, const Texts& texts);

} // namespace session
