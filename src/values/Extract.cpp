#include "values/Coding.h"

#include "platform/Guard.h"
#include "values/Failures.h"
#include "values/Numbers.h"
#include "values/TimeText.h"
#include "values/WireType.h"

#include <cmath>

namespace values {

namespace {

// What an unknown value is written as: memory that was never programmed.
constexpr char kUnprogrammed = '\xFF';

char toByte(double number)
{
    const int byte = toInteger(number);
    if (byte < 0 || byte > 255)
        failInvalidCall();
    return static_cast<char>(byte);
}

double toCounts(double value, const ParameterCoding& coding)
{
    const double units = coding.HR - coding.LR;
    if (units == 0)
        failDivisionByZero();
    return (value - coding.LR) * (double(coding.HW) - double(coding.LW)) / units + coding.LW;
}

// The counts as the text of 15 digits says them, so that 4660.000000000001 is 4660.
double countsOf(const QString& value, const ParameterCoding& coding)
{
    return toFifteenDigits(toCounts(toNumber(value), coding));
}

char timeByte(const QString& value, const ParameterCoding& coding)
{
    const QStringView text(value);
    const double hours = std::floor(toNumber(text.mid(0, 2)) * 3600);
    const double seconds = hours + toNumber(text.mid(3, 2)) * 60;
    return toByte(std::floor(toCounts(seconds, coding)));
}

QByteArray extractByte(const QString& value, const ParameterCoding& coding)
{
    if (value.isEmpty())
        return QByteArray(1, kUnprogrammed);
    const auto form = timeFormOf(coding.KeyType);
    if (!form)
        return QByteArray(1, toByte(countsOf(value, coding)));
    // Hours alone and seconds have no encoder, on purpose.
    return form == TimeForm::HM ? QByteArray(1, timeByte(value, coding)) : QByteArray();
}

enum class ByteOrder
{
    LowFirst,
    HighFirst
};

QByteArray extractWord(const QString& value, const ParameterCoding& coding, ByteOrder order)
{
    if (value.isEmpty())
        return QByteArray(2, kUnprogrammed);
    const double counts = countsOf(value, coding);
    const double whole = std::floor(counts / 256);
    const char low = toByte(counts - whole * 256);
    const char high = toByte(whole);
    return order == ByteOrder::LowFirst ? QByteArray(1, low) + high : QByteArray(1, high) + low;
}

QByteArray extract(const QString& value, const ParameterCoding& coding)
{
    switch (wireTypeOf(coding.Type)) {
    case WireType::Byte:
        return extractByte(value, coding);
    case WireType::WordLowFirst:
        return extractWord(value, coding, ByteOrder::LowFirst);
    case WireType::WordHighFirst:
        return extractWord(value, coding, ByteOrder::HighFirst);
    case WireType::SignedByte:
    case WireType::Bit:
    case WireType::Bcd:
    case WireType::IntLowFirst:
    case WireType::IntHighFirst:
    case WireType::Other:
        break;
    }
    return {};
}

} // namespace

QByteArray Extract_EngVal(const QString& value, const ParameterCoding& coding)
{
    return platform::guarded("Module/Extract_EngVal", [&] { return extract(value, coding); });
}

QByteArray Compose_Str(const QByteArray& text, int size)
{
    return platform::guarded("Module/Compose_Str", [&] {
        if (text.size() > size)
            failInvalidCall();
        return text.leftJustified(size, ' ');
    });
}

} // namespace values
