#pragma once

#include "session/Forward.h"

#include <QString>

namespace structure {

// The key of what an event names: the instrument in its equipment, else the equipment, else an instrument of
// that name anywhere in the company. Names are compared as a log file holds them, without regard to case. ""
// when the company has none of them any more, or none is open.
QString placeByName(const session::Session& session, const QString& equipment, const QString& instrument);

} // namespace structure
