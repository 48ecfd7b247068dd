#include "line/Explorer.h"

#include <QElapsedTimer>
#include <QSet>

namespace line {

namespace {

// What may also come in at the very moment at which a timer is due.
constexpr What kCoincident[] = {What::Answer,   What::SaysOk,   What::SaysConnect,
                                What::SaysAta,  What::SaysRing, What::SaysAtd,
                                What::EndBlock, What::Return,   What::FirstBlock};

QString nodeOf(const Picture& picture)
{
    return nameOf(picture.code) + '/' + QString::number(picture.status);
}

} // namespace

std::vector<Event> Explorer::possibleNow(const World& world) const
{
    std::vector<Event> events;
    for (const What what : kAllEvents)
        if (world.isPossible(what))
            events.emplace_back(what);
    for (const What what : kCoincident)
        if (world.isPossible(what))
            events.push_back(withTimer(what));
    return events;
}

Explorer::Seen Explorer::goTo(const Sequence& sequence)
{
    Seen seen;
    std::size_t at = 0;
    world_.reset();
    world_.play(World::Source([&](World& world) -> std::optional<Event> {
        if (at < sequence.size())
            return sequence[at++];
        const Picture now = world.picture();
        seen.digest = digest(now);
        seen.state.node = nodeOf(now);
        seen.state.possible = possibleNow(world);
        return std::nullopt;
    }));
    return seen;
}

Sequence Explorer::wayTo(int state) const
{
    Sequence way;
    for (; states_[std::size_t(state)].parent >= 0; state = states_[std::size_t(state)].parent)
        way.push_back(states_[std::size_t(state)].event);
    return {way.rbegin(), way.rend()};
}

Explorer::Report Explorer::explore(int seconds, int deepest)
{
    QElapsedTimer time;
    time.start();
    Report report;
    Seen first = goTo({});
    known_.insert(first.digest, 0);
    states_ = {first.state};
    for (std::size_t at = 0; at < states_.size(); ++at) {
        report.states = int(states_.size());
        report.depth = states_[at].depth;
        if (report.depth >= deepest)
            return report;
        Sequence way = wayTo(int(at));
        way.emplace_back();
        for (const Event event : std::vector<Event>(states_[at].possible)) {
            if (time.elapsed() > qint64(seconds) * 1000)
                return report;
            way.back() = event;
            Seen seen = goTo(way);
            ++report.transitions;
            const bool isNew = world_.violation().isEmpty() && !known_.contains(seen.digest);
            // From each state that is new the line must come to rest, and answer a call.
            if (isNew)
                world_.recover();
            if (!world_.violation().isEmpty()) {
                report.violation = world_.violation();
                report.sequence = way;
                return report;
            }
            const QString& from = states_[at].node;
            if (from != seen.state.node)
                graph_[{from, seen.state.node}].insert(nameOf(event));
            if (!isNew)
                continue;
            known_.insert(seen.digest, int(states_.size()));
            seen.state.parent = int(at);
            seen.state.event = event;
            seen.state.depth = states_[at].depth + 1;
            states_.push_back(seen.state);
        }
    }
    report.states = int(states_.size());
    report.whole = true;
    return report;
}

QStringList Explorer::graph() const
{
    QStringList lines;
    for (const auto& [way, events] : graph_)
        for (const QString& event : events)
            lines << way.first + '\t' + event + '\t' + way.second;
    return lines;
}

} // namespace line
