#pragma once

#include "history/Compare.h"

namespace program {

// The values of a data trace, for a comparison. A file that is none fails.
std::vector<history::SideValue> valuesOfTrace(const QString& file, int codePage);

} // namespace program
