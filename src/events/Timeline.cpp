#include "events/Timeline.h"

#include <algorithm>

namespace events {

namespace {

constexpr int kHours = 24;
// Up to so many days are shown by the hour.
constexpr qint64 kDaysByHour = 3;

bool earlier(const Timeline::Bar& a, const Timeline::Bar& b)
{
    return a.unit < b.unit;
}

void add(Timeline::Bar& bar, const Timeline::Bar& other)
{
    for (std::size_t type = 0; type < bar.counts.size(); ++type)
        bar.counts[type] += other.counts[type];
}

} // namespace

void Timeline::arrange()
{
    merge();
    if (bars_.empty())
        return;
    const auto day = [](const Bar& bar) { return dateOf(bar.unit * kHour); };
    byHour_ = day(bars_.front()).daysTo(day(bars_.back())) < kDaysByHour;
    for (Bar& bar : bars_)
        bar.unit = unitOf(bar.unit * kHour);
    merge();
}

// Puts the bars in order, those of one unit together.
void Timeline::merge()
{
    std::stable_sort(bars_.begin(), bars_.end(), earlier);
    std::vector<Bar> merged;
    for (const Bar& bar : bars_) {
        if (merged.empty() || merged.back().unit != bar.unit)
            merged.push_back(bar);
        else
            add(merged.back(), bar);
    }
    bars_ = std::move(merged);
}

Timeline::Bar Timeline::bar(qint64 unit) const
{
    return sum(unit, unit);
}

Timeline::Bar Timeline::sum(qint64 from, qint64 to) const
{
    Bar sum{from, {}};
    for (auto bar = std::lower_bound(bars_.begin(), bars_.end(), sum, earlier);
         bar != bars_.end() && bar->unit <= to; ++bar)
        add(sum, *bar);
    return sum;
}

qint64 Timeline::unitOf(Stamp when) const
{
    const qint64 day = dateOf(when).toJulianDay();
    return byHour_ ? day * kHours + timeOf(when).hour() : day;
}

Stamp Timeline::begin(qint64 unit) const
{
    if (!byHour_)
        return stampOf(QDate::fromJulianDay(unit), QTime(0, 0));
    return stampOf(QDate::fromJulianDay(unit / kHours), QTime(int(unit % kHours), 0));
}

Stamp Timeline::end(qint64 unit) const
{
    const QTime lastSecond(byHour_ ? timeOf(begin(unit)).hour() : kHours - 1, 59, 59);
    return stampOf(dateOf(begin(unit)), lastSecond);
}

QString Timeline::name(qint64 unit) const
{
    constexpr int kDayLength = 10, kMinuteLength = 16;
    return QString::fromLatin1(sortableText(begin(unit)).data(), byHour_ ? kMinuteLength : kDayLength);
}

} // namespace events
