#include "platform/SingleInstance.h"

namespace platform {

namespace {

bool isHeldByNobody(const QLockFile& mark)
{
    qint64 process = 0;
    QString host, program;
    return !mark.getLockInfo(&process, &host, &program);
}

} // namespace

SingleInstance::SingleInstance(const QString& applicationFolder)
    : mark_(applicationFolder + QStringLiteral("/Calidora.lock"))
{
    // A program may run for weeks: its mark never grows stale by age, only by the death of its process.
    mark_.setStaleLockTime(0);
    bool held = mark_.tryLock();
    // A power cut may leave a mark that names nobody. The removal is refused when its maker is alive.
    if (!held && isHeldByNobody(mark_) && mark_.removeStaleLockFile())
        held = mark_.tryLock();
    anotherIsRunning_ = !held && mark_.error() == QLockFile::LockFailedError;
}

} // namespace platform
