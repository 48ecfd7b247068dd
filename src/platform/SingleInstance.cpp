#include "platform/SingleInstance.h"

namespace platform {

SingleInstance::SingleInstance(const QString& applicationFolder)
    : mark_(applicationFolder + QStringLiteral("/Calidora.lock"))
{
    // A program may run for weeks: its mark never grows stale by age, only by the death of its process.
    mark_.setStaleLockTime(0);
    anotherIsRunning_ = !mark_.tryLock() && mark_.error() == QLockFile::LockFailedError;
}

} // namespace platform
