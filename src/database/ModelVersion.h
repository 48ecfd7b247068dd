#pragma once

#include <QString>

namespace session {
struct Session;
}

namespace database {

// The version of the installed model of the instruments when it is newer than the catalogue of the open
// company; else, and where either of them can't be told, "". Nothing is written, nothing is reported.
QString newerModel(const session::Session& session);

} // namespace database
