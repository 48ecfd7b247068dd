#include "platform/QtClock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>
#include <cmath>

namespace platform {

namespace {

class QtTimer : public Timer
{
public:
    QtTimer()
    {
        // A coarse timer fires up to five per cent early, and no frame may leave before its interval.
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            if (onTick)
                onTick();
        });
    }

protected:
    void rearm() override
    {
        if (Enabled() && Interval() > 0)
            timer_.start(Interval());
        else
            timer_.stop();
    }

private:
    QTimer timer_;
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
