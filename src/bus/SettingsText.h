#pragma once

#include "session/Forward.h"

#include <QString>

namespace bus {

// The settings text of the port, speed, parity, data bits, stop bits, such as "9600,N,8,1". An index outside
// its table adds nothing.
QString settingsText(const session::COMPortSettings& port);

} // namespace bus
