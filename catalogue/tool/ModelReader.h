#pragma once

#include "catalogue/tool/Catalogue.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace catalogue {

// Reads back from a company, whose own copy of the catalogue may be an older one, places, coding and limits
// of the parameters of a type, by id. Texts, origins and the names of choices stay empty.
std::vector<Parameter> parametersOf(SQLite::Database& database, const QString& typeTag);

// The memory banks, by id.
std::vector<Bank> banksOf(SQLite::Database& database);

} // namespace catalogue
