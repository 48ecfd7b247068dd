#pragma once

#include <array>

namespace platform {

// The characters of the bytes 0x80 to 0xFF of a single-byte page, in order; 0x00 to 0x7F are ASCII in every
// page. A byte that the page leaves undefined holds a stand-in, so that every byte has one character and the
// way back to it: a control character up to 0x9F, above it the private character U+F700 + byte.
using UpperHalf = std::array<char16_t, 128>;

// Any page other than 874 and 1250 to 1258 counts as 1252.
const UpperHalf& upperHalfOf(int codePage);

} // namespace platform
