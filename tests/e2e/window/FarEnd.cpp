#include "e2e/window/FarEnd.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace window {

FarEnd::~FarEnd()
{
    close(near_);
    close(end_);
}

void FarEnd::plugIn()
{
    end_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (end_ < 0 || grantpt(end_) != 0 || unlockpt(end_) != 0)
        throw std::runtime_error("no pseudo-terminal");
    termios settings{};
    tcgetattr(end_, &settings);
    cfmakeraw(&settings);
    tcsetattr(end_, TCSANOW, &settings);
    near_ = open(ptsname(end_), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    QFile::remove(link_);
    QFile::link(QString::fromLocal8Bit(ptsname(end_)), link_);
}

void FarEnd::say(const QByteArray& bytes)
{
    if (write(end_, bytes.constData(), std::size_t(bytes.size())) != bytes.size())
        throw std::runtime_error("the line takes nothing");
    // They are on their way for a while; the program can't read them meanwhile.
    const QDeadlineTimer patience(10000);
    for (int there = 0; there < bytes.size() && !patience.hasExpired(); ioctl(near_, FIONREAD, &there))
        QThread::usleep(50);
}

const QByteArray& FarEnd::heard()
{
    char bytes[4096];
    for (ssize_t count = 0; (count = read(end_, bytes, sizeof bytes)) > 0;)
        heard_.append(bytes, count);
    return heard_;
}

void FarEnd::pullOut()
{
    heard();
    const int gone[] = {near_, end_};
    plugIn();
    for (const int file : gone)
        close(file);
}

} // namespace window
