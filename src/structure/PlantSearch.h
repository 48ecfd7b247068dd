#pragma once

#include "structure/CompanyReader.h"
#include "structure/ListModel.h"

#include <vector>

namespace structure {

// What a search found. Items are groups, instruments and parameters with their node key, name, what of them
// holds the text beside the name, the path to them, and their picture.
struct Findings
{
    std::vector<ListItem> items;
    int more = 0;    // found, but beyond what is listed
    QString failure; // why the search broke off; "" if it didn't
};

// How many of a kind are listed.
inline constexpr int kMostOfAKind = 200;

// Searches a whole company for a text, in any case, and for its words where nothing holds it whole: groups by
// name, description and phone; instruments by name, description, type tag and address; parameters by name,
// tag and value, the value as stored and as shown. Of several words one at least stands there, the others
// there or in the names above: "defrost carne". The characters of a word stand for themselves; "" finds
// nothing. Never raises.
Findings findInPlant(const QString& file, const QString& language, const QString& text, const StopFlag& stop);

} // namespace structure
