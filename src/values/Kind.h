#pragma once

#include <QStringView>

namespace values {

// What a parameter's value means to the operator: the tag of its type in the catalogue.
enum class Kind
{
    Real,
    Enum,
    String,
    TimeH,
    TimeHM,
    TimeHMS,
    Other
};

// Tags are compared exactly; an unknown one is Other.
Kind kindOf(QStringView tag);

} // namespace values
