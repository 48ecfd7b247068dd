#pragma once

#include "catalogue/tool/Catalogue.h"

namespace catalogue {

// Writes the model database of a checked catalogue: the schema from schemaFile, then every row. The same
// catalogue gives the same rows. Takes the target's place only when complete.
void writeModel(const Catalogue& catalogue, const QString& schemaFile, const QString& target);

} // namespace catalogue
