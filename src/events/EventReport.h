#pragma once

#include "events/EventColumn.h"

#include <QStringList>

namespace events {

// A row of the list, or its headings, as a line of a report; a control character gives a blank.

// Fixed columns with a blank between them: a text beyond its column's width is cut.
QString fixedLine(const QStringList& cells);
// The texts as they are, with commas between them.
QString commaLine(const QStringList& cells);

} // namespace events
