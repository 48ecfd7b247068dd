#pragma once

#include <QString>
#include <ostream>

// How a failed expectation shows a text: as such, not as sixteen-bit numbers.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
