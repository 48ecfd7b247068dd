#pragma once

#include "platform/RuntimeError.h"

namespace values {

// A bit field lies within one byte: `first` is its lowest bit. Throws an invalid call when it reaches beyond.
inline void requireInsideByte(int first, int count)
{
    constexpr int kBits = 8;
    if (first < 0 || count < 0 || first > kBits || count > kBits - first)
        platform::fail(platform::errors::kInvalidCall, QStringLiteral("Invalid procedure call or argument"));
}

} // namespace values
