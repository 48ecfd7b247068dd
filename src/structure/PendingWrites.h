#pragma once

#include "structure/CompanyReader.h"
#include "structure/ListModel.h"

#include <vector>

namespace structure {

// The parameters of a whole company that are changed here and not yet written to their instrument: node key,
// name, the value to be written as it is shown, the path, by group, instrument and parameter group.
struct PendingWrites
{
    std::vector<ListItem> items;
    QString failure; // why the reading broke off; "" if it didn't
};

// Never raises.
PendingWrites readPendingWrites(const QString& file, const QString& language, const StopFlag& stop);

} // namespace structure
