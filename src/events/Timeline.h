#pragma once

#include "events/Stamp.h"

#include <QString>
#include <array>
#include <vector>

namespace events {

// How many events fell into each day, or each hour where all lie within a few days.
//
// Units are counted through: days by their Julian number, hours by that number times 24.
class Timeline
{
public:
    struct Bar
    {
        qint64 unit = 0;
        std::array<int, 4> counts{}; // by type: 1 information, 2 warning, 3 error

        int total() const { return counts[1] + counts[2] + counts[3]; }
    };

    // `visit` calls its argument with stamp and type of every event; those without a stamp don't count.
    template <class Visit>
    static Timeline of(Visit&& visit)
    {
        Timeline timeline;
        visit([&](Stamp when, int type) {
            if (when != kNoStamp)
                timeline.count(when, type);
        });
        timeline.arrange();
        return timeline;
    }

    bool byHour() const { return byHour_; }
    bool isEmpty() const { return bars_.empty(); }
    // In the order of time; units without an event have no bar.
    const std::vector<Bar>& bars() const { return bars_; }
    qint64 first() const { return bars_.front().unit; }
    qint64 last() const { return bars_.back().unit; }
    // The bar of a unit; one without events where there is none.
    Bar bar(qint64 unit) const;
    // What happened from one unit to another, both included.
    Bar sum(qint64 from, qint64 to) const;

    qint64 unitOf(Stamp when) const;
    // The first and the last second of a unit.
    Stamp begin(qint64 unit) const;
    Stamp end(qint64 unit) const;
    // "2026/03/14", "2026/03/14 10:00".
    QString name(qint64 unit) const;

private:
    // Files hold their events in the order of time, nearly always: what falls into one hour comes together.
    // Until all are counted a bar's unit is its hour as a number yyyymmddhh.
    void count(Stamp when, int type)
    {
        const qint64 hour = when / kHour;
        if (bars_.empty() || bars_.back().unit != hour)
            bars_.push_back({hour, {}});
        ++bars_.back().counts[std::size_t(type)];
    }
    void arrange();
    void merge();

    static constexpr Stamp kHour = 10'000;

    bool byHour_ = false;
    std::vector<Bar> bars_;
};

} // namespace events
