#include "Loop.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace instrument {

Loop::Loop(VirtualInstrument& instrument, Pty& pty)
    : instrument_(instrument), pty_(pty), commands_(instrument)
{
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGINT);
    sigprocmask(SIG_BLOCK, &ends, nullptr);
    signals_ = signalfd(-1, &ends, SFD_CLOEXEC);
    instrument_.send = [this](const QByteArray& bytes) { pty_.write(bytes); };
}

Loop::~Loop()
{
    instrument_.send = nullptr;
    close(signals_);
}

void Loop::run()
{
    while (!ended_) {
        waitForSomething();
        if (lineReady_)
            instrument_.receive(pty_.read(), now());
        instrument_.advance(now());
        if (inputReady_)
            takeCommands();
        followDevice();
    }
}

void Loop::waitForSomething()
{
    // A negative descriptor is passed over.
    pollfd sources[] = {{pty_.descriptor(), POLLIN, 0},
                        {inputOpen_ ? STDIN_FILENO : -1, POLLIN, 0},
                        {signals_, POLLIN, 0},
                        {pty_.departures(), POLLIN, 0}};
    poll(sources, std::size(sources), patienceMs());
    lineReady_ = sources[0].revents & POLLIN;
    inputReady_ = sources[1].revents & (POLLIN | POLLHUP);
    ended_ = sources[2].revents & POLLIN;
    if (sources[3].revents & POLLIN)
        pty_.clearUpBehind();
}

int Loop::patienceMs() const
{
    const std::optional<qint64> due = instrument_.nextDue();
    return due ? int(std::clamp<qint64>(*due - now(), 0, 60000)) : -1;
}

void Loop::takeCommands()
{
    char buffer[1024];
    const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    inputOpen_ = count > 0;
    input_.append(buffer, std::max<ssize_t>(count, 0));
    for (qsizetype end = input_.indexOf('\n'); end >= 0 && !ended_; end = input_.indexOf('\n')) {
        const QString line = QString::fromUtf8(input_.first(end)).trimmed();
        input_.remove(0, end + 1);
        if (line.isEmpty())
            continue;
        std::puts(commands_.execute(line, now()).toUtf8().constData());
        std::fflush(stdout);
        ended_ = commands_.quitAsked();
    }
}

// A vanished device is unplugged here, and one that has come back plugged in again under the same name.
void Loop::followDevice()
{
    const bool gone = instrument_.failures().isActive(Failure::Gone);
    if (gone == !pty_.isPlugged())
        return;
    if (gone) {
        pty_.unplug();
    } else {
        instrument_.restart();
        pty_.plugIn();
    }
}

qint64 Loop::now()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
}

} // namespace instrument
