#pragma once

#include "platform/RuntimeError.h"

#include <QString>
#include <functional>

namespace support {

// A procedure's own name, and what makes it fail.
struct NamedFailure
{
    QString procedure;
    std::function<void()> provoke;
};

// What a window, a disk or a driver does that can't go on.
[[noreturn]] inline void breakDown()
{
    platform::fail(platform::errors::kDeviceIo, QStringLiteral("broken"));
}

// No text can be fetched in this one.
inline const QString kNoLanguage = QStringLiteral("FR_Francais_3000");

} // namespace support
