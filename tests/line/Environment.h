#pragma once

#include <QtGlobal>

namespace line {

// A number that whoever runs the tests may set.
inline int fromEnvironment(const char* name, int otherwise)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : otherwise;
}

} // namespace line
