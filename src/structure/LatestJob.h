#pragma once

#include "structure/CompanyReader.h"

#include <QMetaObject>
#include <QObject>
#include <QThreadPool>
#include <functional>
#include <memory>

namespace structure {

// A job in a thread of its own whose result comes back to the receiver's thread. A job that starts takes the
// place of the one before it, which ends at its next look at the stop flag and whose result nobody sees.
template <class Result>
class LatestJob
{
public:
    using Work = std::function<Result(const StopFlag&)>; // touches nothing that another thread may touch
    using Done = std::function<void(const Result&)>;

    // Both live as long as this; `receiver` longer than any result on its way.
    LatestJob(QObject& receiver, Done done) : receiver_(receiver), done_(std::move(done))
    {
        threads_.setMaxThreadCount(1);
    }
    ~LatestJob()
    {
        cancel();
        threads_.waitForDone();
    }
    LatestJob(const LatestJob&) = delete;
    LatestJob& operator=(const LatestJob&) = delete;

    bool isRunning() const { return stop_ && !*stop_; }

    void start(Work work)
    {
        cancel();
        stop_ = std::make_shared<StopFlag>(false);
        threads_.start([this, work = std::move(work), stop = stop_] {
            if (*stop)
                return;
            auto result = std::make_shared<Result>(work(*stop));
            QMetaObject::invokeMethod(
                &receiver_, [this, result, stop] { deliver(*result, *stop); }, Qt::QueuedConnection);
        });
    }

    void cancel()
    {
        if (stop_)
            *stop_ = true;
        threads_.clear();
    }

private:
    void deliver(const Result& result, StopFlag& stop)
    {
        if (!stop.exchange(true))
            done_(result);
    }

    QObject& receiver_;
    Done done_;
    std::shared_ptr<StopFlag> stop_;
    QThreadPool threads_;
};

} // namespace structure
