#pragma once

#include <QDateTime>
#include <functional>
#include <memory>

namespace platform {

// A form's timer: while Enabled it ticks every Interval milliseconds, never early. A tick that is still
// running holds back the next one. Setting Interval or Enabled starts the interval anew.
class Timer
{
public:
    virtual ~Timer() = default;

    int Interval() const { return interval_; }
    bool Enabled() const { return enabled_; }
    void setInterval(int milliseconds);
    void setEnabled(bool enabled);
    // Both at once, as every step of a dialogue wants it.
    void start(int milliseconds);
    void stop() { setEnabled(false); }

    std::function<void()> onTick;
    // Behind each tick, when it holds nothing back any more: here a box may stand as long as it likes.
    std::function<void()> onTicked;

protected:
    // Puts the settings into force: arms the timer anew, or disarms it.
    virtual void rearm() = 0;

private:
    int interval_ = 0;
    bool enabled_ = false;
};

// The clock that the program lives by, and the maker of its timers.
class Clock
{
public:
    virtual ~Clock() = default;

    virtual QDateTime now() const = 0;
    // Milliseconds of a clock that only runs forward, for measuring.
    virtual qint64 elapsed() const = 0;
    // Holds timers, the receive event and the operator for the time told. Sleeps; windows may repaint.
    virtual void block(double seconds) = 0;
    virtual std::unique_ptr<Timer> makeTimer() = 0;

    // Seconds since midnight, with their fraction.
    double secondsSinceMidnight() const { return now().time().msecsSinceStartOfDay() / 1000.0; }
};

// Blocks until the clock of seconds since midnight stands `seconds` behind where it stood, and returns the
// time elapsed. That clock restarts at midnight: a wait across it ends when the same value comes round the
// next day.
double waitOnDayClock(Clock& clock, double seconds);

// Blocks until the first second of the next day when a wait of so many seconds would reach into it.
void awaitRoomInTheDay(Clock& clock, double seconds);

} // namespace platform
