#pragma once

#include <QString>

namespace structure {

class Structure;

// Goes to an element of the plant: the tree selects what stands above it, the list shows its neighbours and
// selects it. False when it isn't there any more; then nothing has moved, or only the tree.
bool jumpTo(Structure& structure, const QString& key);

} // namespace structure
