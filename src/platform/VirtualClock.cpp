#include "platform/VirtualClock.h"

#include <algorithm>
#include <cmath>

namespace platform {

class VirtualClock::VirtualTimer : public Timer
{
public:
    explicit VirtualTimer(VirtualClock& clock) : clock_(clock) { clock_.timers_.push_back(this); }
    ~VirtualTimer() override { std::erase(clock_.timers_, this); }

    std::optional<qint64> due() const { return ticking_ ? std::nullopt : due_; }

    void tick()
    {
        due_ = clock_.elapsed_ + Interval();
        ticking_ = true;
        if (onTick)
            onTick();
        ticking_ = false;
        tickedThisRound_ = true;
        if (onTicked)
            onTicked();
    }

    bool mayTick() const { return due() && *due() <= clock_.elapsed_ && !tickedThisRound_; }
    void beginRound() { tickedThisRound_ = false; }

protected:
    void rearm() override
    {
        if (Enabled() && Interval() > 0)
            due_ = clock_.elapsed_ + Interval();
        else
            due_.reset();
    }

private:
    VirtualClock& clock_;
    std::optional<qint64> due_;
    bool ticking_ = false;
    bool tickedThisRound_ = false;
};

namespace {
void keepEarlier(std::optional<qint64>& first, const std::optional<qint64>& other)
{
    if (other && (!first || *other < *first))
        first = other;
}
} // namespace

VirtualClock::VirtualClock(QDateTime start) : start_(std::move(start)) {}

VirtualClock::~VirtualClock() = default;

void VirtualClock::block(double seconds)
{
    const qint64 end = elapsed_ + qint64(std::ceil(seconds * 1000));
    while (true) {
        const std::optional<qint64> due = nextPeerDue();
        if (!due || *due > end)
            break;
        elapsed_ = std::max(elapsed_, *due);
        for (Peer* peer : peers_)
            peer->advance(elapsed_);
    }
    elapsed_ = end;
}

std::unique_ptr<Timer> VirtualClock::makeTimer()
{
    return std::make_unique<VirtualTimer>(*this);
}

void VirtualClock::removePeer(Peer& peer)
{
    std::erase(peers_, &peer);
}

void VirtualClock::post(std::function<void()> event)
{
    events_.push_back(std::move(event));
}

void VirtualClock::run(qint64 milliseconds)
{
    runUntil([] { return false; }, milliseconds);
}

bool VirtualClock::runUntil(const std::function<bool()>& condition, qint64 limit)
{
    const qint64 end = elapsed_ + limit;
    while (true) {
        // A tick that blocks as long as its interval is due again at once: the end holds all the same.
        while (elapsed_ <= end && runDueNow()) {
            if (condition())
                return true;
        }
        if (condition())
            return true;
        const std::optional<qint64> due = nextDue();
        if (elapsed_ >= end)
            return false;
        elapsed_ = due ? std::clamp(*due, elapsed_, end) : end;
        beginRound();
    }
}

bool VirtualClock::runDueNow()
{
    for (Peer* peer : peers_) {
        const std::optional<qint64> due = peer->nextDue();
        if (due && *due <= elapsed_) {
            peer->advance(elapsed_);
            return true;
        }
    }
    if (order_ == Order::EventsFirst)
        return runEvent() || tickFirst();
    if (tickFirst())
        return true;
    beginRound();
    return runEvent() || tickFirst();
}

bool VirtualClock::runEvent()
{
    if (events_.empty())
        return false;
    const std::function<void()> event = std::move(events_.front());
    events_.pop_front();
    event();
    return true;
}

bool VirtualClock::tickFirst()
{
    if (order_ == Order::EventsFirst)
        beginRound();
    VirtualTimer* first = nullptr;
    for (VirtualTimer* timer : timers_) {
        if (!timer->mayTick())
            continue;
        if (!first || *timer->due() < *first->due() || (youngestFirst_ && *timer->due() == *first->due()))
            first = timer;
    }
    if (first)
        first->tick();
    return first != nullptr;
}

void VirtualClock::beginRound()
{
    for (VirtualTimer* timer : timers_)
        timer->beginRound();
}

std::vector<std::optional<qint64>> VirtualClock::timersDue() const
{
    std::vector<std::optional<qint64>> due;
    for (const VirtualTimer* timer : timers_)
        due.push_back(timer->due());
    return due;
}

std::optional<qint64> VirtualClock::nextDue() const
{
    std::optional<qint64> due = nextPeerDue();
    for (const VirtualTimer* timer : timers_)
        keepEarlier(due, timer->due());
    if (!events_.empty())
        due = elapsed_;
    return due;
}

std::optional<qint64> VirtualClock::nextPeerDue() const
{
    std::optional<qint64> due;
    for (const Peer* peer : peers_)
        keepEarlier(due, peer->nextDue());
    return due;
}

} // namespace platform
