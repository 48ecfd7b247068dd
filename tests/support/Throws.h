#pragma once

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

namespace support {

// The number of the RuntimeError that a work ends with; 0 when it ends without one.
template <class Work>
int errorOf(Work&& work)
{
    try {
        work();
    } catch (const platform::RuntimeError& error) {
        EXPECT_FALSE(error.description.isEmpty());
        return error.number;
    }
    return 0;
}

} // namespace support
