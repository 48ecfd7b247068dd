#pragma once

#include "session/Forward.h"

#include <QString>

namespace values {

// Stores a value that came from the bus, the empty text as NULL, and marks it as equal to the instrument
// (State 0). True when the statement ran.
bool Update_Param(session::Session& session, int IDGrp, int IDInst, const QString& IDPar,
                  const QString& Value);

} // namespace values
