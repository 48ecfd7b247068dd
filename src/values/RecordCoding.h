#pragma once

#include "platform/Recordset.h"
#include "values/Coding.h"

namespace values {

// The coding of the parameter in the current record of a statement that selects the catalogue's coding
// columns.
inline ParameterCoding codingOf(const platform::Recordset& record)
{
    return {record.text("KeyType"),     record.text("mType"),     record.number("mBitFirst"),
            record.number("mBitCount"), record.number("mLW"),     record.number("mHW"),
            record["mLR"].toDouble(),   record["mHR"].toDouble(), record["mLL"].toDouble(),
            record["mHL"].toDouble(),   record.number("mSize")};
}

} // namespace values
