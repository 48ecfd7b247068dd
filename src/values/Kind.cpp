#include "values/Kind.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace values {

namespace {

using namespace std::string_view_literals;

constexpr std::array<std::pair<std::u16string_view, Kind>, 6> kTags{{
    {u"REAL"sv, Kind::Real},
    {u"ENUM"sv, Kind::Enum},
    {u"STRING"sv, Kind::String},
    {u"TIME_H"sv, Kind::TimeH},
    {u"TIME_HM"sv, Kind::TimeHM},
    {u"TIME_HMS"sv, Kind::TimeHMS},
}};

} // namespace

Kind kindOf(QStringView tag)
{
    const std::u16string_view text(tag.utf16(), static_cast<size_t>(tag.size()));
    const auto found =
        std::find_if(kTags.begin(), kTags.end(), [&](const auto& row) { return row.first == text; });
    return found == kTags.end() ? Kind::Other : found->second;
}

} // namespace values
