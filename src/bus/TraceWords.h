#pragma once

#include "bus/LineTrace.h"
#include "session/Forward.h"

#include <QString>

namespace bus {

// A piece of traffic as the trace shows it.

// "30 31 52"
QString hexOf(const QByteArray& bytes);
// Printable characters as they are, each other byte as a middle dot. Frames and their answers are bytes: of
// them only the ASCII characters count.
QString plainOf(const TraceEvent& event, int codePage);
// What it is, in words of the current language.
QString meaningOf(const TraceEvent& event, const session::Texts& texts);

} // namespace bus
