#pragma once

#include "values/Failures.h"

namespace values {

// A bit field lies within one byte: `first` is its lowest bit. Throws an invalid call when it reaches beyond.
inline void requireInsideByte(int first, int count)
{
    constexpr int kBits = 8;
    if (first < 0 || count < 0 || first > kBits || count > kBits - first)
        failInvalidCall();
}

} // namespace values
