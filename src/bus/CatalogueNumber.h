#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

namespace bus {

// A whole number of the catalogue: a command, an address, a size. The catalogue keeps some as texts. One that
// is missing or isn't numeric fails, so that nothing is sent that nobody chose.
int catalogueNumber(const platform::Recordset& record, const char* field, const session::Texts& texts);

} // namespace bus
