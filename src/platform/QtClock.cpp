#include "platform/QtClock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>
#include <cmath>
#include <utility>

namespace platform {

namespace {

class QtTimer : public Timer
{
public:
    QtTimer()
    {
        // A coarse timer fires up to five per cent early, and no frame may leave before its interval.
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
    }

protected:
    void rearm() override
    {
        held_ = false;
        if (Enabled() && Interval() > 0)
            timer_.start(Interval());
        else
            timer_.stop();
    }

private:
    // A tick may hold a message loop of its own, a box for instance: what falls due in it waits for its end.
    void tick()
    {
        if (ticking_) {
            held_ = true;
            return;
        }
        if (timer_.interval() != Interval()) // behind one that was held back
            timer_.start(Interval());
        ticking_ = true;
        if (onTick)
            onTick();
        ticking_ = false;
        if (std::exchange(held_, false))
            timer_.start(0);
        if (onTicked)
            onTicked();
    }

    QTimer timer_;
    bool ticking_ = false;
    bool held_ = false; // one fell due during a tick
};

} // namespace

void QtClock::block(double seconds)
{
    if (QCoreApplication::instance())
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
    const qint64 end = running_.elapsed() + qint64(std::ceil(seconds * 1000));
    while (running_.elapsed() < end)
        QThread::msleep(static_cast<unsigned long>(end - running_.elapsed()));
}

std::unique_ptr<Timer> QtClock::makeTimer()
{
    return std::make_unique<QtTimer>();
}

} // namespace platform
