#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace events {

// Sorts rows beside the event loop, so that the window lives meanwhile, and hands them over when it is in its
// turn again.
class SortAside : public QObject
{
public:
    using Rows = std::vector<quint32>;
    // Runs in a thread of its own, which nobody else's data may change under; it ends early where it sees
    // `stop`.
    using Work = std::function<void(Rows& rows, const std::atomic<bool>& stop)>;
    using Take = std::function<void(Rows rows)>;

    ~SortAside() override { giveUp(); }

    // A sort under way is given up.
    void begin(Rows rows, Work work, Take take);
    // Nothing is handed over any more, and the work has ended.
    void giveUp();
    bool isBusy() const { return thread_.joinable(); }

private:
    void handOver(int turn, const Take& take);

    std::thread thread_;
    std::atomic<bool> stop_ = false;
    Rows rows_;
    int turn_ = 0;
};

} // namespace events
