#include "platform/Clock.h"

namespace platform {

namespace {
constexpr double kSecondsOfDay = 24 * 60 * 60;

bool reachesMidnight(const Clock& clock, double seconds)
{
    return clock.secondsSinceMidnight() + seconds >= kSecondsOfDay;
}
} // namespace

void Timer::setInterval(int milliseconds)
{
    interval_ = milliseconds;
    rearm();
}

void Timer::setEnabled(bool enabled)
{
    enabled_ = enabled;
    rearm();
}

void Timer::start(int milliseconds)
{
    interval_ = milliseconds;
    setEnabled(true);
}

double waitOnDayClock(Clock& clock, double seconds)
{
    const qint64 begun = clock.elapsed();
    clock.block(reachesMidnight(clock, seconds) ? seconds + kSecondsOfDay : seconds);
    return double(clock.elapsed() - begun) / 1000.0;
}

void awaitRoomInTheDay(Clock& clock, double seconds)
{
    constexpr int kMillisecondsOfDay = int(kSecondsOfDay) * 1000;
    while (reachesMidnight(clock, seconds))
        clock.block((kMillisecondsOfDay - clock.now().time().msecsSinceStartOfDay()) / 1000.0);
}

} // namespace platform
