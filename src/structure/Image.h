#pragma once

#include "values/ParamState.h"

namespace structure {

// The picture of a node or an item.
enum class Image
{
    None = 0,
    Root = 1,
    Group = 2,
    Instrument = 3,
    ParamGroup = 4,
    Parameter = 5, // by its state: these three
    ParameterChanged = 6,
    ParameterAdded = 7
};

// Of a tree node, by its level.
inline int imageOfNode(int level)
{
    return int(Image::Root) + level;
}

// Of a parameter; `state` as it stands in the company.
inline int imageOfState(int state)
{
    return int(Image::Parameter) + state;
}

} // namespace structure
