#pragma once

#include <QStringList>
#include <ostream>

// How a failed comparison shows Qt's texts.

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* stream)
{
    *stream << "{\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"}";
}
