#include "bus/BitMerge.h"

#include "platform/Words.h"
#include "values/Digits.h"

namespace bus {

int mergeBits(unsigned char oldByte, const QString& andMask, const QString& orMask)
{
    if (andMask.size() != 8 || orMask.size() != 8)
        platform::failInWords(platform::errors::kTypeMismatch, "bits.nomask");
    int consumed = oldByte;
    QString digits = values::DecToBin(consumed);
    for (qsizetype i = 0; i < 8; ++i) {
        const bool kept = digits[i].digitValue() * andMask[i].digitValue() == 1;
        digits[i] = orMask[i] == QLatin1Char('1') || kept ? QLatin1Char('1') : QLatin1Char('0');
    }
    return values::BinToDec(digits);
}

} // namespace bus
