#pragma once

#include "platform/RuntimeError.h"

namespace values {

// The ways in which a value can fail, with the words that the operator reads.

[[noreturn]] inline void failInvalidCall()
{
    platform::fail(platform::errors::kInvalidCall, QStringLiteral("Invalid procedure call or argument"));
}

[[noreturn]] inline void failOverflow()
{
    platform::fail(platform::errors::kOverflow, QStringLiteral("Overflow"));
}

[[noreturn]] inline void failDivisionByZero()
{
    platform::fail(platform::errors::kDivisionByZero, QStringLiteral("Division by zero"));
}

[[noreturn]] inline void failTypeMismatch()
{
    platform::fail(platform::errors::kTypeMismatch, QStringLiteral("Type mismatch"));
}

} // namespace values
