#pragma once

#include "platform/Clock.h"

#include <QString>
#include <QVariant>

namespace session {

// A text made safe for SQL: each ' doubled, wrapped in ' on both sides; NULL gives NULL. `trim` is "L", "R"
// or "T" (blanks only), `letters` "L" or "U", either case; "" leaves the text as it is.
QString Compose_SqlText(const QVariant& value, const QString& trim = {}, const QString& letters = {});

// The same for a text that is stored as NULL when it is empty.
QString composeTextOrNull(const QString& value);

// The value, or the default when it is NULL.
QString Null_To_Value(const QVariant& value, const QString& otherwise = {});

// True when the file's length can be read.
bool Exist_File(const QString& path);
// True when the path is a directory.
bool Exist_Path(const QString& path);

// Waits on the clock of seconds since midnight, without a message loop; returns the time elapsed.
double Wait_Seconds(platform::Clock& clock, double seconds);

} // namespace session
