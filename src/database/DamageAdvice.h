#pragma once

#include "session/Forward.h"

namespace database {

// Has every failure on a damaged company say which copy to go back to, and how. Wraps the failure hook that
// is installed; both arguments outlive it.
void installDamageAdvice(const session::Session& session, const session::Texts& texts);

} // namespace database
