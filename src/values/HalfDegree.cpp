#include "values/HalfDegree.h"

#include <cmath>

namespace values {

double halfDegreeRule(double number, const QString& unit)
{
    const double whole = std::floor(number);
    const double part = number - whole;
    if (unit != QStringLiteral("°C") || part == 0)
        return number;
    return part <= 0.5 ? whole + 0.5 : whole + 1;
}

} // namespace values
