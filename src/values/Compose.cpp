#include "values/Coding.h"

#include "platform/Guard.h"
#include "values/BitField.h"
#include "values/Numbers.h"
#include "values/TimeText.h"
#include "values/WireType.h"

namespace values {

using platform::fail;
namespace errors = platform::errors;

namespace {

int byteAt(const QByteArray& raw, int index)
{
    if (index >= raw.size())
        fail(errors::kInvalidCall, QStringLiteral("Invalid procedure call or argument"));
    return static_cast<uchar>(raw[index]);
}

// Engineering units per count.
double slope(const ParameterCoding& coding)
{
    const double counts = double(coding.HW) - double(coding.LW);
    if (counts == 0)
        fail(errors::kDivisionByZero, QStringLiteral("Division by zero"));
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

// The limits are compared with what the text says, not with the number behind it.
bool isAbove(double stored, const ParameterCoding& coding)
{
    return stored > coding.HL;
}

// A low limit of zero or below is never tested.
bool isBelow(double stored, const ParameterCoding& coding)
{
    return coding.LL > 0 && stored < coding.LL;
}

QString withinLimits(double value, const ParameterCoding& coding)
{
    const double stored = toFifteenDigits(value);
    return isAbove(stored, coding) || isBelow(stored, coding) ? QString() : toText(value);
}

QString composeByte(const QByteArray& raw, const ParameterCoding& coding)
{
    const double value = fromWrapped(byteAt(raw, 0), coding);
    const auto form = timeFormOf(coding.KeyType);
    if (!form)
        return withinLimits(value, coding);
    const double seconds = toFifteenDigits(value);
    return isAbove(seconds, coding) || isBelow(seconds, coding) ? QString() : composeTime(seconds, *form);
}

QString composeBit(const QByteArray& raw, const ParameterCoding& coding)
{
    requireInsideByte(coding.BitFirst, coding.BitCount);
    const int field = (byteAt(raw, 0) >> coding.BitFirst) & ((1 << coding.BitCount) - 1);
    return toText(fromWrapped(field, coding));
}

// Four nibbles: sign (above 9 is minus), hundreds, tens, units. A nibble above 9 counts with its value.
QString composeBcd(const QByteArray& raw, const ParameterCoding& coding)
{
    const int high = byteAt(raw, 0);
    const int low = byteAt(raw, 1);
    const int sign = high >> 4 > 9 ? -1 : 1;
    const int counts = ((low >> 4) * 10 + (high & 15) * 100 + (low & 15)) * sign;
    const double value = (double(counts) - coding.LW) * slope(coding) + coding.LR;
    return isAbove(toFifteenDigits(value), coding) ? QString() : toText(value);
}

// No sign and no wrap, for INT as for WORD.
QString composeWord(int word, const ParameterCoding& coding)
{
    return withinLimits(slope(coding) * (double(word) - coding.LW) + coding.LR, coding);
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
