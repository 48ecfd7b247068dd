#pragma once

#include <QString>

namespace values {

// What becomes of a number that is typed for a parameter with this unit: a temperature ("°C") goes up to the
// next half degree, never to the nearest one; any other number stays.
double halfDegreeRule(double number, const QString& unit);

} // namespace values
