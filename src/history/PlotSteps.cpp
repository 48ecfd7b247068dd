#include "history/PlotSteps.h"

#include "history/HistoryModel.h"
#include "session/Texts.h"
#include "values/Numbers.h"
#include "values/TimeText.h"

#include <algorithm>

namespace history {

using values::Kind;

namespace {

constexpr qint64 kShortest = 1000; // a step that lasted no time is still to be seen

Plot::Form formOf(Kind kind)
{
    switch (kind) {
    case Kind::Real:
    case Kind::TimeH:
    case Kind::TimeHM:
    case Kind::TimeHMS:
        return Plot::Form::Steps;
    case Kind::Enum:
        return Plot::Form::Band;
    default:
        return Plot::Form::None;
    }
}

std::optional<double> numberOf(const std::optional<QString>& value, Kind kind)
{
    if (!value)
        return std::nullopt;
    if (kind == Kind::TimeH || kind == Kind::TimeHM || kind == Kind::TimeHMS) {
        const auto time = values::parseTime(*value);
        return time ? std::optional(time->hour * 3600.0 + time->minute * 60 + time->second) : std::nullopt;
    }
    return values::isNumeric(*value) ? std::optional(values::toNumber(*value)) : std::nullopt;
}

} // namespace

const PlotStep& Plot::at(qint64 time) const
{
    const auto behind = std::upper_bound(steps.begin(), steps.end(), time,
                                         [](qint64 time, const PlotStep& step) { return time < step.from; });
    return behind == steps.begin() ? steps.front() : *(behind - 1);
}

std::optional<std::pair<double, double>> Plot::span() const
{
    std::optional<std::pair<double, double>> span;
    for (const PlotStep& step : steps) {
        if (!step.number)
            continue;
        if (!span)
            span.emplace(*step.number, *step.number);
        span->first = std::min(span->first, *step.number);
        span->second = std::max(span->second, *step.number);
    }
    return span;
}

QString Plot::inWords(const session::Texts& texts) const
{
    if (isEmpty())
        return texts.own("history.plot.none");
    QStringList words{
        texts.own("history.plot.span").arg(timeWords(from()), timeWords(to())).arg(steps.size())};
    constexpr std::size_t kMostTold = 20; // the last of them
    for (std::size_t i = steps.size() > kMostTold ? steps.size() - kMostTold : 0; i < steps.size(); ++i)
        words << stepWords(steps[i], texts);
    return words.join(QStringLiteral("; "));
}

Plot plotOf(const HistoryPage& page, qint64 now)
{
    Plot plot;
    plot.form = formOf(page.kind);
    if (plot.form == Plot::Form::None)
        return plot;
    for (auto note = page.notes.rbegin(); note != page.notes.rend(); ++note) {
        const bool first = plot.steps.empty();
        if (!first && note->oldValue == note->newValue && note->oldState.has_value() &&
            note->newState.has_value())
            continue; // only the mark
        if (!first)
            plot.steps.back().to = note->time;
        else if (note->oldState) // what it was before anybody took notes has no beginning
            plot.steps.push_back(
                {note->time - kShortest, note->time, numberOf(note->oldValue, page.kind), note->oldShown});
        plot.steps.push_back({note->time, std::max(now, note->time + kShortest),
                              numberOf(note->newValue, page.kind), note->newShown});
    }
    return plot;
}

QString stepWords(const PlotStep& step, const session::Texts& texts)
{
    const QString shown = step.shown.isEmpty() ? texts.own("history.mark.none") : step.shown;
    return QStringLiteral("%1, %2 - %3").arg(shown, timeWords(step.from), timeWords(step.to));
}

} // namespace history
