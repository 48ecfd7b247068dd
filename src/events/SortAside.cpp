#include "events/SortAside.h"

#include <utility>

namespace events {

void SortAside::begin(Rows rows, Work work, Take take)
{
    giveUp();
    rows_ = std::move(rows);
    stop_ = false;
    thread_ = std::thread([this, turn = turn_, work = std::move(work), take = std::move(take)] {
        work(rows_, stop_);
        QMetaObject::invokeMethod(
            this, [this, turn, take] { handOver(turn, take); }, Qt::QueuedConnection);
    });
}

void SortAside::giveUp()
{
    ++turn_;
    stop_ = true;
    if (isBusy())
        thread_.join();
}

void SortAside::handOver(int turn, const Take& take)
{
    if (turn != turn_)
        return;
    thread_.join();
    take(std::exchange(rows_, {}));
}

} // namespace events
