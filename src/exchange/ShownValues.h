#pragma once

#include "exchange/ReportRows.h"

#include <QHash>

namespace exchange {

// The value of a report's row as the operator reads it. An enumeration's choices are read once, in the
// current language; a value that can't be shown by its meaning is shown as it stands.
class ShownValues
{
public:
    explicit ShownValues(const session::Session& session);

    QString of(const ReportRow& row) const;
    // As comma delimited files want it: numbers with a point for each comma, times with nothing but colons.
    QString ofForCommas(const ReportRow& row) const;

private:
    QString shown(const ReportRow& row, const std::optional<QString>& unit) const;
    QString choice(const QString& IDPar, const QString& value) const;

    QHash<QString, QHash<int, QString>> choices_; // by parameter, in lower case
};

} // namespace exchange
