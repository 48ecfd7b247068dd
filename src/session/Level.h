#pragma once

namespace session {

// How deep an element lies in the plant, and what stands where there is none.
enum Level
{
    kNoCompany = -2,
    kNoSelection = -1,
    kRoot = 0,
    kGroup = 1,
    kInstrument = 2,
    kParamGroup = 3,
    kParameter = 4
};

} // namespace session
