#include "session/Session.h"

namespace session {

bool rightOf(const QString& booleanText)
{
    if (booleanText.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    bool numeric = false;
    const double number = booleanText.toDouble(&numeric);
    return numeric && number != 0;
}

} // namespace session
