#pragma once

#include "events/Stamp.h"

namespace events {

// One line of a log file, its fields cut out and trimmed: bytes of the file's code page that live as long as
// the line. A short line gives empty fields.
struct LogLine
{
    // Whether the line starts with a digit, as every event's does.
    static bool isEvent(QByteArrayView line);

    // Of a line that is an event.
    explicit LogLine(QByteArrayView line);

    int type;                // the line's first character as a number
    Stamp when;              // kNoStamp when the date can't be read
    QByteArrayView dateText; // as it stands in the line
    QByteArrayView source, equipment, instrument, description;
};

// A line's bytes behind this one belong to no field.
inline constexpr qsizetype kLineWidth = 378;

} // namespace events
