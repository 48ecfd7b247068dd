#include "structure/Jump.h"

#include "structure/Structure.h"

namespace structure {

bool jumpTo(Structure& structure, const QString& key)
{
    const QString node = parentKey(key);
    if (!structure.tree().contains(node))
        return false;
    structure.list().setFilter({});
    structure.clickNode(node);
    if (!structure.list().item(key))
        return false;
    structure.pressItem(key);
    return true;
}

} // namespace structure
