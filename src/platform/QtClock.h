#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>

namespace platform {

// The machine's clock and Qt's precise timers.
class QtClock : public Clock
{
public:
    QtClock() { running_.start(); }

    QDateTime now() const override { return QDateTime::currentDateTime(); }
    qint64 elapsed() const override { return running_.elapsed(); }
    void block(double seconds) override;
    std::unique_ptr<Timer> makeTimer() override;

private:
    QElapsedTimer running_;
};

} // namespace platform
