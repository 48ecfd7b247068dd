#pragma once

#include <QString>

namespace property {

// What the dialog tells beside its controls; "" stays away.
struct Details
{
    QString title, path;  // of the element
    QString unit;         // behind the field
    QString limits;       // "-10 ... 20 \u00b0C"
    QString standard;     // the catalogue's default
    QString wholeAddress; // that results from the digit in the field
    QString warning;
};

} // namespace property
