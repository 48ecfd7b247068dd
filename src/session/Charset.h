#pragma once

namespace session {

struct Session;

// The character set that goes with a machine's locale id; 0 for every locale that is not told.
int charsetOfLocale(int localeId);

// Gives the session the machine's character set and the code page of its files and of its line.
void applyMachineLocale(Session& session, int localeId);

} // namespace session
