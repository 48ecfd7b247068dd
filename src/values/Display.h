#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace values {

// What lists, printouts and report files show for a parameter's value (none is NULL). `mask` and `unit` are
// those of a REAL; `enumText` looks a number of an ENUM up and is called for nothing else; `otherwise` is
// what an unknown meaning tag shows. An unknown value shows as "--", "--.--" or "--.--.--", by its tag; a
// text or list one as "".
QString displayValue(const std::optional<QString>& value, const QString& keyType, const QString& mask,
                     const std::optional<QString>& unit,
                     const std::function<QString(const QString&)>& enumText, const QString& otherwise);

} // namespace values
