#pragma once

#include <QString>
#include <array>

namespace events {

// The columns of the list of events, in their order; also that of the export and of the print.
enum class EventColumn
{
    Type,
    Date,
    Source,
    Equipment,
    Instrument,
    Description
};
inline constexpr int kEventColumns = 6;

// The words of the list in the current language.
struct EventWords
{
    std::array<QString, kEventColumns> headings;
    std::array<QString, 4> types;   // by type: 1 information, 2 warning, 3 error
    std::array<QString, 3> sources; // by source: 1 alarms, 2 read/write; 0 is ""
};

} // namespace events
