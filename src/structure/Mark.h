#pragma once

#include <QHash>
#include <QString>

namespace structure {

// Signs on the picture of a node or an item, beside what the picture itself says.
enum Mark
{
    kHoldsChanges = 1,     // parameters below are changed here and not yet written
    kHoldsUnconfirmed = 2, // a write was not confirmed, here or below
    kReadOnly = 4
};

// The marks by node key; what isn't there has none.
using Marks = QHash<QString, int>;

// What the signs on that picture say, one a line, for whoever asks what they are or can't see them.
QString wordsOf(int marks, int image);

} // namespace structure
