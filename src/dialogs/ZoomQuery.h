#pragma once

#include "session/Lookup.h"

namespace dialogs {

// The statement behind the lookup list. A Value "12*" asks for keys that begin with 12, "*12*" for keys that
// contain it, "AB@" and "*AB@" the same of names; "*" and "@" ask for all.
QString zoomQuery(const session::ZoomSettings& zoom);

} // namespace dialogs
