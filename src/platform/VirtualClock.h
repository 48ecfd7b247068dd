#pragma once

#include "platform/Clock.h"

#include <deque>
#include <optional>
#include <vector>

namespace platform {

// Somebody outside the program who lives in the same time: a peer on the line. Goes on while the program
// blocks.
class Peer
{
public:
    virtual ~Peer() = default;
    // Milliseconds of VirtualClock::elapsed at which it wants to act next; none when it waits to be spoken
    // to.
    virtual std::optional<qint64> nextDue() const = 0;
    virtual void advance(qint64 elapsed) = 0;
};

// Time that is moved by hand, so that an hour of protocol runs in milliseconds.
//
// It owns the event loop of a test: what falls due first happens first, peers before all others, and
// everything but the peers waits while the program blocks. Behind a wait the real loop lets each timer that
// is due tick once and then takes what was posted; the other order can be had, too.
class VirtualClock : public Clock
{
public:
    enum class Order
    {
        TimersFirst,
        EventsFirst
    };

    explicit VirtualClock(QDateTime start = QDateTime(QDate(2026, 3, 14), QTime(9, 0)));
    ~VirtualClock() override;

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 elapsed() const override { return elapsed_; }
    void block(double seconds) override;
    std::unique_ptr<Timer> makeTimer() override;

    void setOrder(Order order) { order_ = order; }
    // Of timers that are due at the same moment the one that was made first ticks first, or the other way
    // round.
    void setYoungestFirst(bool youngest) { youngestFirst_ = youngest; }
    // The machine's clock is set; what runs forward runs on.
    void setNow(const QDateTime& now) { start_ = now.addMSecs(-elapsed_); }
    // When each timer falls due, on the clock of elapsed(), in the order in which they were made; none for
    // one that is not armed.
    std::vector<std::optional<qint64>> timersDue() const;
    void addPeer(Peer& peer) { peers_.push_back(&peer); }
    void removePeer(Peer& peer);
    // Queues an event of the program: it runs as soon as nothing blocks, in the order of posting.
    void post(std::function<void()> event);

    // Lets time pass with everything that falls due in it.
    void run(qint64 milliseconds);
    // Runs what is due now without moving the clock.
    void settle() { run(0); }
    // Lets time pass until the condition holds; false when `limit` milliseconds pass without it.
    bool runUntil(const std::function<bool()>& condition, qint64 limit);

private:
    class VirtualTimer;

    bool runDueNow();
    bool runEvent();
    // The earliest of the timers that are due and have not ticked in this round.
    bool tickFirst();
    void beginRound();
    std::optional<qint64> nextDue() const;
    std::optional<qint64> nextPeerDue() const;

    QDateTime start_;
    Order order_ = Order::TimersFirst;
    bool youngestFirst_ = false;
    qint64 elapsed_ = 0;
    std::vector<Peer*> peers_;
    std::vector<VirtualTimer*> timers_;
    std::deque<std::function<void()>> events_;
};

} // namespace platform
