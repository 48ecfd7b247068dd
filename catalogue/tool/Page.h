#pragma once

#include "catalogue/tool/Catalogue.h"

namespace catalogue {

// Writes the whole range as one Markdown page: a table for each group of each type. Replaces the file in one
// go; throws std::runtime_error when it cannot.
void writePage(const Catalogue& catalogue, const QString& target);

} // namespace catalogue
