#pragma once

#include <QString>

// An event as one text, the same whether it is told, stored or logged.
namespace line {

inline const QString kLoggedDate = QStringLiteral("dd/MM/yyyy HH:mm:ss");

QString rowText(const QString& type, const QString& date, const QString& source, const QString& equipment,
                const QString& instrument, const QString& description);
QString rowOfLine(const QString& line);

} // namespace line
