#include "platform/SingleInstance.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {
constexpr int kRights = 0666; // less what the operator's own mask takes away
} // namespace

SingleInstance::SingleInstance(const QString& applicationFolder)
    : mark_(open(QFile::encodeName(applicationFolder + QStringLiteral("/Calidora.lock")).constData(),
                 O_RDWR | O_CREAT | O_CLOEXEC, kRights))
{
    if (mark_ >= 0)
        anotherIsRunning_ = flock(mark_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

SingleInstance::~SingleInstance()
{
    if (mark_ >= 0)
        close(mark_);
}

} // namespace platform
