#pragma once

#include "catalogue/tool/Catalogue.h"

namespace catalogue {

// Cuts a row into its columns at blanks; a column in double quotes may hold blanks, or nothing, and loses its
// quotes.
QStringList columnsOf(const QString& row, const Origin& origin);

// Each refuses a text that isn't what its name says.
int wholeNumber(const QString& text, const Origin& origin);
double number(const QString& text, const Origin& origin);
std::pair<double, double> range(const QString& text, const Origin& origin); // "-50..77.5"
Text texts(const QString& text, const Origin& origin);                      // "Italian | English | Russian"

} // namespace catalogue
