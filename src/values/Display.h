#pragma once

#include "values/Kind.h"

#include <QString>
#include <functional>
#include <optional>

namespace values {

// How the value of a parameter is shown.
struct ValueForm
{
    Kind kind = Kind::Other;
    QString mask;                // of a REAL
    std::optional<QString> unit; // of a REAL; none is NULL
};

// The description of an ENUM's number.
using EnumText = std::function<QString(const QString&)>;

// What lists, printouts and report files show for a parameter's value (none is NULL). `enumText` is called
// for nothing but an ENUM; `otherwise` is what an unknown meaning shows. An unknown value shows as "--",
// "--.--" or "--.--.--", by its kind; a text or list one as "".
QString displayValue(const std::optional<QString>& value, const ValueForm& form, const EnumText& enumText,
                     const QString& otherwise);

// The same for a form that stands in fields of a record.
QString displayValue(const std::optional<QString>& value, const QString& keyType, const QString& mask,
                     const std::optional<QString>& unit, const EnumText& enumText, const QString& otherwise);

// What the list shows for a value that was just typed, until it is loaded again: a REAL without a unit keeps
// the blank that stands before one.
QString displayTyped(const std::optional<QString>& value, const ValueForm& form, const EnumText& enumText);

} // namespace values
