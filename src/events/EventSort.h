#pragma once

#include "events/EventColumn.h"

#include <vector>

namespace events {

class CaseFold;
class EventStore;

// Puts the rows in the order of a column's texts, without regard to case. Rows with equal texts keep the
// order they had, in either direction.
void sortEvents(std::vector<quint32>& rows, const EventStore& store, const EventWords& words,
                const CaseFold& fold, EventColumn column, bool ascending);

} // namespace events
