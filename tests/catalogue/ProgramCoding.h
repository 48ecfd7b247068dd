#pragma once

#include "catalogue/tool/Catalogue.h"

#include "values/Coding.h"

namespace catalogue::testing {

// A parameter as the program's coding wants it.
inline values::ParameterCoding codingOf(const Parameter& parameter)
{
    const Scale& scale = parameter.scale;
    return {parameter.key,
            parameter.wire,
            parameter.bitFirst,
            parameter.bitCount,
            static_cast<int>(scale.low),
            static_cast<int>(scale.high),
            scale.lowValue,
            scale.highValue,
            parameter.low,
            parameter.high,
            parameter.size};
}

} // namespace catalogue::testing
