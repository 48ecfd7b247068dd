#include "Pty.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace instrument {

namespace {

[[noreturn]] void failed(const QString& what)
{
    throw std::system_error(errno, std::generic_category(), what.toStdString());
}

} // namespace

Pty::Pty(QString link) : link_(std::move(link)), watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    plugIn();
}

Pty::~Pty()
{
    unplug();
    if (QFile::symLinkTarget(link_) == device_)
        QFile::remove(link_);
    close(watch_);
}

void Pty::plugIn()
{
    if (isPlugged())
        return;
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0)
        failed(QStringLiteral("pseudo-terminal"));
    device_ = QString::fromLocal8Bit(ptsname(master_));
    slave_ = open(device_.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave_ < 0)
        failed(device_);

    termios settings{};
    tcgetattr(slave_, &settings);
    cfmakeraw(&settings);
    tcsetattr(slave_, TCSANOW, &settings);
    inotify_add_watch(watch_, device_.toLocal8Bit().constData(), IN_CLOSE);
    replaceLink();
}

void Pty::unplug()
{
    if (!isPlugged())
        return;
    close(slave_);
    close(master_);
    master_ = slave_ = -1;
}

// The claim would end with the last descriptor of the far side, but one of them is kept open here.
void Pty::clearUpBehind()
{
    char events[1024];
    bool left = false;
    while (::read(watch_, events, sizeof events) > 0)
        left = true;
    if (left && isPlugged())
        ioctl(slave_, TIOCNXCL);
}

void Pty::replaceLink()
{
    QDir().mkpath(QFileInfo(link_).absolutePath());
    if (QFileInfo(link_).isSymLink())
        QFile::remove(link_);
    if (symlink(device_.toLocal8Bit().constData(), link_.toLocal8Bit().constData()) != 0)
        failed(link_);
}

QByteArray Pty::read()
{
    QByteArray bytes;
    char buffer[1024];
    for (;;) {
        const ssize_t count = ::read(master_, buffer, sizeof buffer);
        if (count <= 0)
            return bytes;
        bytes.append(buffer, count);
    }
}

void Pty::write(const QByteArray& bytes)
{
    if (isPlugged() && ::write(master_, bytes.constData(), std::size_t(bytes.size())) < 0 && errno != EAGAIN)
        failed(device_);
}

} // namespace instrument
