#pragma once

#include "platform/Clock.h"

#include <memory>

namespace bus {

// A timer of the line. It counts how often it was set, so that a tick can see whether what came in first has
// started it anew or stopped it.
class LineTimer
{
public:
    explicit LineTimer(platform::Clock& clock) : timer_(clock.makeTimer()) {}

    void start(int milliseconds)
    {
        ++settings_;
        timer_->start(milliseconds);
    }
    void stop()
    {
        ++settings_;
        timer_->stop();
    }
    int settings() const { return settings_; }

    // What it does at each tick, and what it does when the tick is through and holds nothing back any more.
    void listen(std::function<void()> onTick, std::function<void()> onTicked)
    {
        timer_->onTick = std::move(onTick);
        timer_->onTicked = std::move(onTicked);
    }

private:
    std::unique_ptr<platform::Timer> timer_;
    int settings_ = 0;
};

} // namespace bus
