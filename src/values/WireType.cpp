#include "values/WireType.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace values {

namespace {

using namespace std::string_view_literals;

constexpr std::array<std::pair<std::u16string_view, WireType>, 8> kTags{{
    {u"BYTE"sv, WireType::Byte},
    {u"WORD_L"sv, WireType::WordLowFirst},
    {u"WORD_H"sv, WireType::WordHighFirst},
    {u"S_BYTE"sv, WireType::SignedByte},
    {u"BIT"sv, WireType::Bit},
    {u"BCD"sv, WireType::Bcd},
    {u"INT_L"sv, WireType::IntLowFirst},
    {u"INT_H"sv, WireType::IntHighFirst},
}};

} // namespace

WireType wireTypeOf(QStringView tag)
{
    const std::u16string_view text(tag.utf16(), static_cast<size_t>(tag.size()));
    const auto found =
        std::find_if(kTags.begin(), kTags.end(), [&](const auto& row) { return row.first == text; });
    return found == kTags.end() ? WireType::Other : found->second;
}

} // namespace values
