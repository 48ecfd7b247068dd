#pragma once

#include <QString>

namespace platform {

// The desktop's own program that tells about the machine: the first of those that are installed; "" for none.
QString systemTool();
// Starts a program on its own, in a window of its own; one that can't be started fails.
void startProgram(const QString& commandLine);

} // namespace platform
