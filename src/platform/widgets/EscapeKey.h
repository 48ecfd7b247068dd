#pragma once

namespace platform {

// Takes what the operator has typed and clicked since the last look, and drops it: true when Escape was among
// it. Timers and the port rest meanwhile, as they do while a job holds the thread.
bool takeEscape();

} // namespace platform
