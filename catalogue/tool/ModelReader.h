#pragma once

#include "catalogue/tool/Catalogue.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace catalogue {

// Reads back from a model or a company what the makers of demo data need: places, coding and limits of the
// parameters of a type, by id. Texts, origins and the names of choices stay empty.
std::vector<Parameter> parametersOf(SQLite::Database& database, const QString& typeTag);

// The memory banks, by id.
std::vector<Bank> banksOf(SQLite::Database& database);

// Whether an ENUM parameter has this choice.
bool hasChoice(SQLite::Database& database, const QString& parameter, const QString& value);

} // namespace catalogue
