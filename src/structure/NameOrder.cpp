#include "structure/NameOrder.h"

#include <algorithm>

namespace structure {

namespace {

// A unit of text as a number that sorts as its character does: those beyond 16 bits, which are written as two
// surrogates, come behind all others.
char32_t rankOf(QChar unit)
{
    const char16_t code = unit.unicode();
    if (code >= u'A' && code <= u'Z')
        return code - u'A' + u'a';
    return unit.isSurrogate() ? 0x10000 + code : code;
}

} // namespace

int compareNames(QStringView one, QStringView other)
{
    const auto [left, right] = std::mismatch(one.begin(), one.end(), other.begin(), other.end(),
                                             [](QChar a, QChar b) { return rankOf(a) == rankOf(b); });
    if (left == one.end() || right == other.end())
        return int(right == other.end()) - int(left == one.end());
    return rankOf(*left) < rankOf(*right) ? -1 : 1;
}

} // namespace structure
