#include "QtPrinters.h"

#include <ostream>

void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringList& texts, std::ostream* stream)
{
    *stream << "{\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"}";
}
