#include "instrument/Timings.h"

#include <cmath>

namespace instrument {

Timings Timings::fasterBy(double speed) const
{
    Timings faster = *this;
    for (qint64 Timings::*wait :
         {&Timings::answer, &Timings::silence, &Timings::modemReply, &Timings::connect, &Timings::ring,
          &Timings::callBlock, &Timings::callPatience, &Timings::callEnd, &Timings::second})
        faster.*wait = std::llround(double(this->*wait) / speed);
    return faster;
}

} // namespace instrument
