#pragma once

#include <QStringView>

namespace structure {

// Two names in the order in which the company's statements give them: Latin letters without regard to case,
// every other character by its number. Below 0, 0 or above 0.
int compareNames(QStringView one, QStringView other);

} // namespace structure
