#pragma once

#include <QByteArray>

namespace logs {

// One line of a log file, without its end.
inline QByteArray line(const QByteArray& type, const QByteArray& date, const QByteArray& source,
                       const QByteArray& equipment, const QByteArray& instrument,
                       const QByteArray& description)
{
    return type + date.leftJustified(19) + source.leftJustified(3) + equipment.leftJustified(50) +
           instrument.leftJustified(50) + description.leftJustified(255);
}

inline QByteArray event(const QByteArray& description, const QByteArray& date = "14/03/2026 10:20:30",
                        const QByteArray& type = "1")
{
    return line(type, date, "2", "PLANT", "BOILER", description) + '\n';
}

} // namespace logs
