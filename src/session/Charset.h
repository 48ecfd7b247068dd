#pragma once

namespace session {

// The character set that goes with a machine's locale id; 0 for every locale that is not told.
int charsetOfLocale(int localeId);

} // namespace session
