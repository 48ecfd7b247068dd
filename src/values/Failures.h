#pragma once

#include "platform/Words.h"

namespace values {

// The ways in which a value can fail, with the words that the operator reads.

[[noreturn]] inline void failInvalidCall()
{
    platform::failInWords(platform::errors::kInvalidCall, "value.invalid");
}

[[noreturn]] inline void failOverflow()
{
    platform::failInWords(platform::errors::kOverflow, "value.overflow");
}

[[noreturn]] inline void failDivisionByZero()
{
    platform::failInWords(platform::errors::kDivisionByZero, "value.zero");
}

[[noreturn]] inline void failTypeMismatch()
{
    platform::failInWords(platform::errors::kTypeMismatch, "value.mismatch");
}

} // namespace values
