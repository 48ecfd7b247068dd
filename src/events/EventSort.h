#pragma once

#include "events/CaseFold.h"
#include "events/EventColumn.h"

#include <atomic>
#include <vector>

namespace events {

class EventStore;

struct EventOrder
{
    EventWords words;
    CaseFold fold;
    EventColumn column;
    bool ascending;
};

// Puts the rows in the order of a column's texts, without regard to case. Rows with equal texts keep the
// order they had, in either direction. Told to stop it leaves the rows in whatever order they are.
void sortEvents(std::vector<quint32>& rows, const EventStore& store, const EventOrder& by,
                const std::atomic<bool>& stop);

} // namespace events
