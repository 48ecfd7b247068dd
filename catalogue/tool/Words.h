#pragma once

#include "catalogue/tool/Catalogue.h"

namespace catalogue {

// Cuts a row into its columns at blanks; a column in double quotes may hold blanks, or nothing, and loses its
// quotes.
QStringList columnsOf(const QString& row, const Origin& origin);

// Each refuses a text that isn't what its name says.
int wholeNumber(const QString& text, const Origin& origin);
double number(const QString& text, const Origin& origin);
std::pair<double, double> range(const QString& text, const Origin& origin);     // "-50..77.5"
int secondsOfDay(const QString& text, const Origin& origin);                    // "07:30"
std::pair<double, double> timeRange(const QString& text, const Origin& origin); // "00:00..23:50", in seconds
Text texts(const QString& text, const Origin& origin); // "Italian | English | Russian"

// Letters that look alike in the two alphabets hide from every search, and have other codes on the wire: the
// words of a Cyrillic text that hold, or are, a Latin one. A text without a Cyrillic letter has none.
QStringList wordsOfTwoAlphabets(const QString& text);

// How a value stands in the sources stands in the database as a text of its own for times: "07:30:00".
QString storedTime(const QString& text, const Origin& origin);

// A time of day in seconds as the sources write it: "07:30".
QString timeOfDay(int seconds);

} // namespace catalogue
