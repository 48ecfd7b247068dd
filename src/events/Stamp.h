#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <array>

namespace events {

// A second of the calendar as the number yyyymmddhhmmss: it sorts as time does.
using Stamp = qint64;
inline constexpr Stamp kNoStamp = 0;

// The time at the start of a text "dd/mm/yyyy HH:MM:SS"; kNoStamp for any other text.
Stamp stampOf(QByteArrayView text);
Stamp stampOf(const QDate& date, const QTime& time);

QDate dateOf(Stamp stamp);
QTime timeOf(Stamp stamp);

// "yyyy/mm/dd HH:MM:SS", so that a text sort is a time sort.
std::array<char, 19> sortableText(Stamp stamp);

} // namespace events
