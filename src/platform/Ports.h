#pragma once

#include <QString>

namespace platform {

// The device behind COM `number` (1 and up): the link ports/COMn of the application folder if it is there,
// else the machine's own name: COM1-4 /dev/ttyS0-3, COM5-10 /dev/ttyUSB0-5, COM11-16 /dev/ttyACM0-5. A number
// beyond that has no device: the empty text.
QString deviceOfPort(const QString& applicationPath, int number);

} // namespace platform
