#pragma once

#include "session/Forward.h"

#include <QString>

namespace database {

// Makes sure that a file is a company that opens: a database, with every table that a company has, and whole.
// The file is not changed, but for what a killed program left unfinished in it, which is undone. Fails with
// words for the operator, who knows the file as `shown`.
void checkCompany(const QString& file, const QString& shown, const session::Texts& texts);

} // namespace database
