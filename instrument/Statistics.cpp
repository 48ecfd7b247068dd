#include "instrument/Statistics.h"

#include "instrument/Outbox.h"

#include <algorithm>
#include <iterator>

namespace instrument {

std::vector<SeenRequest> Statistics::writes() const
{
    std::vector<SeenRequest> writes;
    std::copy_if(requests.begin(), requests.end(), std::back_inserter(writes),
                 [](const SeenRequest& seen) { return seen.request.kind == CommandKind::Write; });
    return writes;
}

std::optional<qint64> Statistics::shortestGapMs() const
{
    std::optional<qint64> shortest;
    for (std::size_t i = 1; i < requests.size(); ++i)
        shortest = earlier(shortest, requests[i].atMs - requests[i - 1].atMs);
    return shortest;
}

} // namespace instrument
