#include "database/CopyWindow.h"

#include <utility>

namespace database {

std::function<void(qint64 done, qint64 total)> percentTeller(std::function<void(int percent)> tell)
{
    return [tell = std::move(tell), told = -1](qint64 done, qint64 total) mutable {
        const int percent = total > 0 ? int(done * 100 / total) : 100;
        if (percent != std::exchange(told, percent))
            tell(percent);
    };
}

} // namespace database
