#pragma once

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

namespace fuzz {

// Stops the fuzzer with the input at hand.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

inline QByteArray bytesOf(const uint8_t* data, size_t size)
{
    return {reinterpret_cast<const char*>(data), qsizetype(size)};
}

} // namespace fuzz
