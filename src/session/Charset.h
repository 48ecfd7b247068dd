#pragma once

#include <QString>

namespace session {

struct Session;

// The character set that goes with a locale's name ("ru_RU.UTF-8", "sr_RS@latin"); 0 for every one that is
// not told.
int charsetOfLocale(const QString& name);

// Gives the session the machine's character set and the code page of its files and of its line.
void applyMachineLocale(Session& session, const QString& locale);

} // namespace session
