#pragma once

#include "line/World.h"

#include <QHash>
#include <map>
#include <set>

namespace line {

// Every state that the line can come into, breadth first: from each state every event that is possible there,
// and states that are alike once.
class Explorer
{
public:
    struct Report
    {
        int depth = 0;      // all sequences of this length are explored
        bool whole = false; // nothing new was left
        int states = 0;
        qint64 transitions = 0;
        QString violation;
        Sequence sequence; // that leads to it
    };

    // For so long, or until nothing new is left, or something does not hold, or so deep.
    Report explore(int seconds, int deepest);
    // What was gone through, by code and status alone: "Idle/0 <tab> Connect <tab> ModemSetup/2", each once.
    QStringList graph() const;

private:
    struct State
    {
        int parent = -1;
        Event event;
        int depth = 0;
        QString node;
        std::vector<Event> possible;
    };
    struct Seen
    {
        QString digest;
        State state;
    };

    Sequence wayTo(int state) const;
    Seen goTo(const Sequence& sequence);
    std::vector<Event> possibleNow(const World& world) const;

    World world_;
    std::vector<State> states_;
    QHash<QString, int> known_;
    std::map<std::pair<QString, QString>, std::set<QString>> graph_;
};

} // namespace line
