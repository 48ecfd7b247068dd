#include "property/Checks.h"

#include "session/Texts.h"
#include "values/Kind.h"
#include "values/NumberMask.h"
#include "values/Numbers.h"

#include <QStringBuilder>

namespace property {

bool isWrongNumber(const QString& text, const Element& element)
{
    const bool groups =
        values::kindOf(element.KeyType) == values::Kind::Real && values::groupsDigits(element.DP);
    return !text.isEmpty() && (!values::isNumeric(text) || (groups && text.contains(u',')));
}

bool isInRange(const QString& text, const SpinButton& range)
{
    const double number = values::toNumber(text);
    return number >= range.Min && number <= range.Max;
}

QString rangeMessage(const session::Texts& texts, double low, double high)
{
    return texts(526) % u' ' % values::toText(low) % u' ' % texts(527) % u' ' % values::toText(high) % u'.';
}

QString rangeOf(const SpinButton& range)
{
    return values::toText(range.Min) % u'-' % values::toText(range.Max);
}

} // namespace property
