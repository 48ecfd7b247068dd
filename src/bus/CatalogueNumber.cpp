#include "bus/CatalogueNumber.h"

#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "session/Texts.h"

namespace bus {

int catalogueNumber(const platform::Recordset& record, const char* field, const session::Texts& texts)
{
    const QVariant value = record[QLatin1String(field)];
    bool isNumber = false;
    const int number = value.toString().trimmed().toInt(&isNumber);
    if (!isNumber)
        platform::fail(
            platform::errors::kTypeMismatch,
            texts.own(QStringLiteral("catalogue.number")).arg(QLatin1String(field), value.toString()));
    return number;
}

} // namespace bus
