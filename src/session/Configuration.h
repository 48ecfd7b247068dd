#pragma once

namespace session {

struct Session;

// The configuration file, "Calidora.ini" in the application folder: what the program remembers between two
// runs.
//
// A section is a header on a line of its own and as many lines as it has keys. The keys' names aren't looked
// at: their order tells what each value is.

// Takes the file's values into the session; true when it was read to its end. A file that is missing, larger
// than any configuration, no text, or holds a malformed value is reported without a box: values read before
// the failure stand in the session, and the caller puts the defaults in their place.
bool Read_Configuration(Session& session);

// Replaces the file by one with the session's values; the former one stands until the new one is whole.
bool Write_Configuration(const Session& session);

// The values of a first run: no company, Italian, the line at 2400,N,8,1.
void applyFirstRunDefaults(Session& session);

} // namespace session
