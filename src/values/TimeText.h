#pragma once

#include "values/Kind.h"

#include <QString>
#include <optional>

namespace values {

// Times of day as texts "HH:MM:SS". A text that is no time of day (24 hours or more, a negative one, a
// fractional minute) stays as it was composed, everywhere.

enum class TimeForm
{
    H,
    HM,
    HMS
};

// The form that a meaning tag asks for: TIME_H, TIME_HM, TIME_HMS; none for any other tag.
std::optional<TimeForm> timeFormOf(const QString& keyType);
std::optional<TimeForm> timeFormOf(Kind kind);

struct TimeOfDay
{
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Reads "H:M:S" or "H:M" with one or two digits a field; none when a field is out of its range or anything
// else. The bare "0" that a synchronisation gives is midnight.
std::optional<TimeOfDay> parseTime(const QString& text);

// Seconds as a time text: whole hours, and under HM and HMS the rest as minutes, which are not cut to whole
// ones; the seconds of HMS are what the minutes leave.
QString composeTime(double seconds, TimeForm form);

// Two digits a field ("2:30:00" becomes "02:30:00").
QString normalizeTime(const QString& text);

// The leading fields of a time text: "HH", "HH:MM" or "HH:MM:SS".
QString formatTime(const QString& text, TimeForm form);

} // namespace values
