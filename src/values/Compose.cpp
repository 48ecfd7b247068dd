#include "values/Coding.h"

#include "platform/Guard.h"
#include "values/BitField.h"
#include "values/Failures.h"
#include "values/Numbers.h"
#include "values/TimeText.h"
#include "values/WireType.h"

namespace values {

namespace {

int byteAt(const QByteArray& raw, int index)
{
    if (index >= raw.size())
        failInvalidCall();
    return static_cast<uchar>(raw[index]);
}

// Engineering units per count.
double slope(const ParameterCoding& coding)
{
    const double counts = double(coding.HW) - double(coding.LW);
    if (counts == 0)
        failDivisionByZero();
    return (coding.HR - coding.LR) / counts;
}

// The counts above the low end, unwrapped: this is what makes a signed byte of one below zero.
double wrapped(int counts, const ParameterCoding& coding)
{
    return double((qint64(counts) - coding.LW) % 256);
}

double fromWrapped(int counts, const ParameterCoding& coding)
{
    return slope(coding) * wrapped(counts, coding) + coding.LR;
}

// The limits are compared with the number that the text says. A low limit of zero or below is never tested.
bool isWithinLimits(double stored, const ParameterCoding& coding)
{
    return !(stored > coding.HL) && !(coding.LL > 0 && stored < coding.LL);
}

QString limited(double value, const ParameterCoding& coding)
{
    const StoredNumber stored = toStored(value);
    return isWithinLimits(stored.number, coding) ? stored.text : QString();
}

QString composeByte(const QByteArray& raw, const ParameterCoding& coding)
{
    const double value = fromWrapped(byteAt(raw, 0), coding);
    const auto form = timeFormOf(coding.KeyType);
    if (!form)
        return limited(value, coding);
    const double seconds = toFifteenDigits(value);
    return isWithinLimits(seconds, coding) ? composeTime(seconds, *form) : QString();
}

QString composeBit(const QByteArray& raw, const ParameterCoding& coding)
{
    requireInsideByte(coding.BitFirst, coding.BitCount);
    const int field = (byteAt(raw, 0) >> coding.BitFirst) & ((1 << coding.BitCount) - 1);
    return toText(fromWrapped(field, coding));
}

// Four nibbles: sign (above 9 is minus), hundreds, tens, units. A nibble above 9 counts with its value. Only
// the high limit is tested.
QString composeBcd(const QByteArray& raw, const ParameterCoding& coding)
{
    const int high = byteAt(raw, 0);
    const int low = byteAt(raw, 1);
    const int sign = high >> 4 > 9 ? -1 : 1;
    const int counts = ((low >> 4) * 10 + (high & 15) * 100 + (low & 15)) * sign;
    const StoredNumber stored = toStored((double(counts) - coding.LW) * slope(coding) + coding.LR);
    return stored.number > coding.HL ? QString() : stored.text;
}

// No sign and no wrap, for INT as for WORD.
QString composeWord(int word, const ParameterCoding& coding)
{
    return limited(slope(coding) * (double(word) - coding.LW) + coding.LR, coding);
}

QString compose(const QByteArray& raw, const ParameterCoding& coding)
{
    switch (wireTypeOf(coding.Type)) {
    case WireType::Byte:
    case WireType::SignedByte:
        return composeByte(raw, coding);
    case WireType::Bit:
        return composeBit(raw, coding);
    case WireType::Bcd:
        return composeBcd(raw, coding);
    case WireType::WordLowFirst:
    case WireType::IntLowFirst:
        return composeWord(byteAt(raw, 1) * 256 + byteAt(raw, 0), coding);
    case WireType::WordHighFirst:
    case WireType::IntHighFirst:
        return composeWord(byteAt(raw, 0) * 256 + byteAt(raw, 1), coding);
    case WireType::Other:
        break;
    }
    return {};
}

} // namespace

QString Compose_EngVal(const QByteArray& raw, const ParameterCoding& coding)
{
    return platform::guarded("Module/Compose_EngVal", [&] { return compose(raw, coding); });
}

} // namespace values
