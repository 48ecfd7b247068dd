#pragma once

#include "history/HistoryPage.h"
#include "session/Forward.h"

#include <QString>
#include <optional>
#include <vector>

namespace history {

// How long a parameter had which value.
struct PlotStep
{
    qint64 from = 0, to = 0;      // milliseconds since 1970, UTC
    std::optional<double> number; // none: not known, or not there
    QString shown;
};

// What a plot shows of a parameter.
struct Plot
{
    enum class Form
    {
        None, // its values are no numbers
        Steps,
        Band // each value is a state of its own
    };

    Form form = Form::None;
    std::vector<PlotStep> steps; // without gaps, oldest first

    bool isEmpty() const { return form == Form::None || steps.empty(); }
    qint64 from() const { return steps.front().from; }
    qint64 to() const { return steps.back().to; }
    // The step at a time; the first or the last beside them.
    const PlotStep& at(qint64 time) const;
    // The span of the numbers; none when there are none.
    std::optional<std::pair<double, double>> span() const;
    // The whole as a text, for who can't see it.
    QString inWords(const session::Texts& texts) const;
};

// Of the notes of one parameter, the newest first; the last value lasts until `now`.
Plot plotOf(const HistoryPage& page, qint64 now);

// "12.5 °C, 21/11/2026 17:00:00 - 21/11/2026 18:30:00"
QString stepWords(const PlotStep& step, const session::Texts& texts);

} // namespace history
