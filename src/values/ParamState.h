#pragma once

namespace values {

// How a stored value stands to the one in its instrument (tbParametersUser.State).
enum class ParamState
{
    Equal = 0,
    Changed = 1, // changed here and to be written
    Added = 2    // added by a synchronisation: the instrument's value has not been read
};

} // namespace values
