#include "instrument/ValueEncoder.h"

#include "instrument/LineText.h"

#include <QStringList>

#include <cmath>
#include <cstdlib>

namespace instrument {

namespace {

constexpr qint64 kNegativeBcdSign = 0xF;

bool isText(const ValueShape& shape)
{
    return shape.wireType == QLatin1String("STRING");
}

bool isWord(const ValueShape& shape)
{
    return shape.wireType.startsWith(QLatin1String("WORD_")) ||
           shape.wireType.startsWith(QLatin1String("INT_"));
}

bool isLine(const ValueShape& shape)
{
    return shape.lowCount != shape.highCount && shape.lowValue != shape.highValue;
}

std::optional<double> numberOf(const QString& text)
{
    bool isNumber = false;
    const double number = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return number;
}

std::optional<double> secondsOf(const QString& text)
{
    double seconds = 0;
    double unit = 3600;
    for (const QString& part : text.split(QLatin1Char(':'))) {
        const std::optional<double> number = numberOf(part);
        if (!number)
            return std::nullopt;
        seconds += *number * unit;
        unit /= 60;
    }
    return seconds;
}

bool isField(const ValueShape& shape)
{
    return shape.bitFirst >= 0 && shape.bitCount >= 1 && shape.bitFirst + shape.bitCount <= 8;
}

quint8 fieldMask(const ValueShape& shape)
{
    return quint8(((1 << shape.bitCount) - 1) << shape.bitFirst);
}

std::optional<EncodedValue> byteOf(const ValueShape& shape, qint64 counts)
{
    // The reader wraps a byte once, above the low end of the line: a signed byte begins there.
    const qint64 lowest = std::min(shape.lowCount, 0);
    if (counts < lowest || counts > lowest + 255)
        return std::nullopt;
    return EncodedValue{QByteArray(1, char(counts & 0xFF))};
}

std::optional<EncodedValue> fieldOf(const ValueShape& shape, qint64 counts)
{
    if (!isField(shape) || counts < 0 || counts >= 1 << shape.bitCount)
        return std::nullopt;
    return EncodedValue{QByteArray(1, char(counts << shape.bitFirst)), fieldMask(shape)};
}

std::optional<EncodedValue> bcdOf(qint64 counts)
{
    const qint64 size = std::abs(counts);
    if (size > 999)
        return std::nullopt;
    QByteArray bytes;
    bytes += char((counts < 0 ? kNegativeBcdSign << 4 : 0) | size / 100);
    bytes += char((size / 10 % 10) << 4 | size % 10);
    return EncodedValue{bytes};
}

std::optional<EncodedValue> wordOf(const ValueShape& shape, qint64 counts)
{
    const qint64 lowest = shape.wireType.startsWith(QLatin1String("INT_")) ? -0x8000 : 0;
    if (counts < lowest || counts > 0xFFFF)
        return std::nullopt;
    const char low = char(counts & 0xFF);
    const char high = char(counts >> 8 & 0xFF);
    const bool lowFirst = shape.wireType.endsWith(QLatin1Char('L'));
    return EncodedValue{lowFirst ? QByteArray{} + low + high : QByteArray{} + high + low};
}

std::optional<EncodedValue> neverProgrammed(const ValueShape& shape)
{
    if (isText(shape))
        return EncodedValue{QByteArray(shape.size, ' ')};
    if (shape.wireType == QLatin1String("BIT") && isField(shape))
        return EncodedValue{QByteArray(1, char(fieldMask(shape))), fieldMask(shape)};
    if (shape.wireType == QLatin1String("BYTE") || shape.wireType == QLatin1String("S_BYTE"))
        return EncodedValue{QByteArray(1, char(0xFF))};
    if (isWord(shape) || shape.wireType == QLatin1String("BCD"))
        return EncodedValue{QByteArray(2, char(0xFF))};
    return std::nullopt;
}

} // namespace

std::optional<EncodedValue> encodeValue(const ValueShape& shape, const std::optional<QString>& value)
{
    if (!value)
        return neverProgrammed(shape);
    if (isText(shape))
        return EncodedValue{instrumentCharacters(*value).leftJustified(shape.size, ' ', true)};
    const std::optional<qint64> counts = countsOf(shape, *value);
    if (!counts)
        return std::nullopt;
    return encodeCounts(shape, *counts);
}

std::optional<qint64> countsOf(const ValueShape& shape, const QString& value)
{
    const std::optional<double> number =
        value.contains(QLatin1Char(':')) ? secondsOf(value) : numberOf(value);
    if (!number || !isLine(shape))
        return std::nullopt;
    const double countsPerValue =
        (double(shape.highCount) - shape.lowCount) / (shape.highValue - shape.lowValue);
    const double counts = (*number - shape.lowValue) * countsPerValue + shape.lowCount;
    if (!(std::abs(counts) < 1e9))
        return std::nullopt;
    return std::llround(counts);
}

std::optional<EncodedValue> encodeCounts(const ValueShape& shape, qint64 counts)
{
    if (shape.wireType == QLatin1String("BYTE") || shape.wireType == QLatin1String("S_BYTE"))
        return byteOf(shape, counts);
    if (shape.wireType == QLatin1String("BIT"))
        return fieldOf(shape, counts);
    if (shape.wireType == QLatin1String("BCD"))
        return bcdOf(counts);
    if (isWord(shape))
        return wordOf(shape, counts);
    return std::nullopt;
}

double valueOfCounts(const ValueShape& shape, qint64 counts)
{
    const double valuePerCount =
        (shape.highValue - shape.lowValue) / (double(shape.highCount) - shape.lowCount);
    return (double(counts) - shape.lowCount) * valuePerCount + shape.lowValue;
}

} // namespace instrument
