#pragma once

#include <QStringList>

namespace session {

struct StoredSettings;

// The settings as the lines of their file, in their order. A name that would break its line is left empty.
QStringList settingsLines(const StoredSettings& settings);

// Takes the lines into the settings, one section after the other. A number outside its range gives the value
// of a first run. What is no settings line fails; the values before it have been taken.
void takeSettings(const QStringList& lines, StoredSettings& settings);

} // namespace session
