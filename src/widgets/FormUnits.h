#pragma once

#include <QtGlobal>
#include <algorithm>
#include <limits>

namespace widgets {

// The configuration keeps widths in form units, fifteen to a point of the screen, as 16-bit numbers.
inline constexpr int kFormUnitsPerPoint = 15;

inline qint16 formUnits(int points)
{
    return qint16(std::min<int>(points * kFormUnitsPerPoint, std::numeric_limits<qint16>::max()));
}

inline int pointsOf(qint16 formUnits)
{
    return formUnits / kFormUnitsPerPoint;
}

} // namespace widgets
