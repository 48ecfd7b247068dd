#include "exchange/Progress.h"

#include "platform/RuntimeError.h"

#include <algorithm>

namespace exchange {

namespace {

constexpr qint64 kMostRowsBetweenLooks = 1000;

} // namespace

Progress::Progress(structure::Structure& structure, platform::Operator& op, qint64 rows)
    : operator_(op), bar_(structure, op), rows_(std::max<qint64>(rows, 1))
{
}

void Progress::look(qint64 rows)
{
    nextLook_ = rows + std::clamp<qint64>(rows_ / 100, 1, kMostRowsBetweenLooks);
    const int percent = int(std::min<qint64>(rows * 100 / rows_, 100));
    if (percent != percent_)
        bar_.to(percent);
    percent_ = percent;
    if (operator_.escapePressed())
        platform::fail(platform::errors::kCancelled, QStringLiteral("The operator pressed Escape."));
}

} // namespace exchange
