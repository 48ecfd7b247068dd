#include "platform/Clock.h"

namespace platform {

namespace {
constexpr double kSecondsOfDay = 24 * 60 * 60;
}

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
    const bool acrossMidnight = clock.secondsSinceMidnight() + seconds >= kSecondsOfDay;
    clock.block(acrossMidnight ? seconds + kSecondsOfDay : seconds);
    return double(clock.elapsed() - begun) / 1000.0;
}

} // namespace platform
