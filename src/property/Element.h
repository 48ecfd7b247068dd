#pragma once

#include "structure/NodeKey.h"

#include <QString>

namespace property {

// The element on which the dialog stands, and what the catalogue says of its value.
struct Element
{
    QString key;
    structure::KeyParts ids;
    QString KeyType; // of a parameter; an instrument's address goes by the rules of a number
    QString DP;      // number mask
    QString Unit, IDCopy;
    bool Enable = false;
    double LowLimit = 0, HighLimit = 0; // of a REAL
};

} // namespace property
