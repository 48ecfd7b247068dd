#pragma once

#include <QString>

namespace platform {

// Whether a lock key of the keyboard is on ("capslock", "numlock"), as its light tells. False where no
// keyboard has one.
bool keyLockOn(const QString& lock);

} // namespace platform
