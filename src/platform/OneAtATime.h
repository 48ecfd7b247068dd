#pragma once

#include "platform/Guard.h"

namespace platform {

// A hook that tells failures one at a time: what is reported while the box of another stands waits for its
// end.
FailureHook oneAtATime(FailureHook tell);

} // namespace platform
