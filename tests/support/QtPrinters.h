#pragma once

#include <QStringList>
#include <iosfwd>

// How a failed comparison shows Qt's texts.
void PrintTo(const QString& text, std::ostream* stream);
void PrintTo(const QStringList& texts, std::ostream* stream);
