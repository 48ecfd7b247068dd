#include "instrument/ValueEncoder.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

using namespace instrument;

namespace {

ValueShape line(const char* wireType, int lowCount, int highCount, double lowValue, double highValue)
{
    ValueShape shape;
    shape.wireType = QString::fromLatin1(wireType);
    shape.keyType = QStringLiteral("REAL");
    shape.lowCount = lowCount;
    shape.highCount = highCount;
    shape.lowValue = lowValue;
    shape.highValue = highValue;
    return shape;
}

ValueShape field(int first, int count)
{
    ValueShape shape = line("BIT", 0, 7, 0, 7);
    shape.bitFirst = first;
    shape.bitCount = count;
    return shape;
}

ValueShape text(int size)
{
    ValueShape shape;
    shape.wireType = QStringLiteral("STRING");
    shape.size = size;
    return shape;
}

struct Row
{
    const char* what;
    ValueShape shape;
    std::optional<QString> value;
    const char* bytes; // nullptr: can't be kept
    int mask = 0xFF;
};

TEST(ValueEncoder, EncodesEveryWireType)
{
    const ValueShape tenths = line("BYTE", 0, 255, 0, 25.5);
    const ValueShape fiveMinutes = line("BYTE", 0, 255, 0, 76500);
    const ValueShape signedByte = line("S_BYTE", -128, 127, -128, 127);
    const ValueShape bcd = line("BCD", 0, 999, 0, 99.9);
    const ValueShape integerL = line("INT_L", -32768, 32767, -32768, 32767);
    const Row rows[] = {
        {"a byte", tenths, "12.3", "7B"},
        {"a typed comma", tenths, "12,3", "7B"},
        {"the top of a byte", tenths, "25.5", "FF"},
        {"above a byte", tenths, "25.6", nullptr},
        {"below a byte", tenths, "-0.1", nullptr},
        {"to the nearest count", tenths, "12.34", "7B"},
        {"half an hour in steps of 300 s", fiveMinutes, "00:30:00", "06"},
        {"two and a half hours", fiveMinutes, "02:30:00", "1E"},
        {"seconds told as a number", fiveMinutes, "9000", "1E"},
        {"no time", fiveMinutes, "--:--", nullptr},
        {"below zero in a signed byte", signedByte, "-10", "F6"},
        {"above zero in a signed byte", signedByte, "100", "64"},
        {"the low end of a signed byte", signedByte, "-128", "80"},
        {"above a signed byte", signedByte, "128", nullptr},
        {"a bit field", field(2, 3), "3", "0C", 0x1C},
        {"one bit", field(7, 1), "1", "80", 0x80},
        {"a whole byte of bits", field(0, 8), "200", "C8", 0xFF},
        {"too much for a bit field", field(2, 3), "8", nullptr},
        {"a bit field beyond its byte", field(6, 3), "1", nullptr},
        {"packed digits", bcd, "12.3", "0123"},
        {"packed digits below zero", bcd, "-12.3", "F123"},
        {"zero in packed digits", bcd, "0", "0000"},
        {"too much for packed digits", bcd, "100", nullptr},
        {"a word, low byte first", line("WORD_L", 0, 65535, 0, 6553.5), "466", "3412"},
        {"a word, high byte first", line("WORD_H", 0, 65535, 0, 6553.5), "466", "1234"},
        {"below a word", line("WORD_H", 0, 65535, 0, 6553.5), "-0.1", nullptr},
        {"above a word", line("WORD_L", 0, 65535, 0, 65535), "65536", nullptr},
        {"below zero in an integer, low byte first", integerL, "-10", "F6FF"},
        {"an integer, high byte first", line("INT_H", 0, 1000, 0, 100), "30", "012C"},
        {"below an integer", integerL, "-32769", nullptr},
        {"a text", text(6), "CELLA", "43454C4C4120"},
        {"a text cut to its size", text(3), "CELLA", "43454C"},
        {"a Cyrillic text", text(4), QStringLiteral("БАЖь"), "A041A3C4"},
        {"no byte value", tenths, std::nullopt, "FF"},
        {"no signed value", signedByte, std::nullopt, "FF"},
        {"no packed digits", bcd, std::nullopt, "FFFF"},
        {"no word", line("WORD_L", 0, 1, 0, 1), std::nullopt, "FFFF"},
        {"no integer", integerL, std::nullopt, "FFFF"},
        {"no bits", field(2, 3), std::nullopt, "1C", 0x1C},
        {"no text", text(3), std::nullopt, "202020"},
        {"an empty text", text(2), "", "2020"},
        {"an empty number", tenths, "", nullptr},
        {"no number", tenths, "abc", nullptr},
        {"a line that is a point", line("BYTE", 0, 0, 0, 1), "1", nullptr},
        {"a flat line", line("BYTE", 0, 255, 1, 1), "1", nullptr},
        {"an unknown type", line("FLOAT", 0, 1, 0, 1), "1", nullptr},
    };
    for (const Row& row : rows) {
        const std::optional<EncodedValue> encoded = encodeValue(row.shape, row.value);
        ASSERT_EQ(encoded.has_value(), row.bytes != nullptr) << row.what;
        if (!encoded)
            continue;
        EXPECT_EQ(encoded->bytes.toHex(), QByteArray::fromHex(row.bytes).toHex()) << row.what;
        EXPECT_EQ(encoded->mask, row.mask) << row.what;
    }
}

// What the far side reads out of the bytes, as counts: a byte unwraps once above the low end of the line.
qint64 readBack(const ValueShape& shape, const QByteArray& bytes)
{
    const int first = quint8(bytes[0]);
    const int second = bytes.size() > 1 ? quint8(bytes[1]) : 0;
    if (shape.wireType.endsWith(QLatin1String("_L")))
        return second * 256 + first;
    if (shape.wireType.endsWith(QLatin1String("_H")))
        return first * 256 + second;
    if (shape.wireType == QLatin1String("BCD"))
        return ((first & 15) * 100 + (second >> 4) * 10 + (second & 15)) * ((first >> 4) > 9 ? -1 : 1);
    if (shape.wireType == QLatin1String("BIT"))
        return first >> shape.bitFirst & ((1 << shape.bitCount) - 1);
    return (first - shape.lowCount) % 256 + shape.lowCount;
}

TEST(ValueEncoder, EveryCountReadsBackAsItself)
{
    const struct
    {
        ValueShape shape;
        qint64 lowest;
        qint64 highest;
    } rows[] = {
        {line("BYTE", 0, 255, 0, 25.5), 0, 255},
        {line("BYTE", 5, 250, 0, 245), 0, 255},
        {line("S_BYTE", -128, 127, -12.8, 12.7), -128, 127},
        {line("S_BYTE", -50, 205, -50, 205), -50, 205},
        {line("BCD", 0, 999, 0, 99.9), -999, 999},
        {field(3, 4), 0, 15},
        {line("WORD_L", 0, 65535, 0, 1), 0, 65535},
        {line("WORD_H", 0, 65535, 0, 1), 0, 65535},
        {line("INT_L", 0, 65535, 0, 1), 0, 65535},
        {line("INT_H", 0, 65535, 0, 1), 0, 65535},
    };
    for (const auto& row : rows) {
        for (qint64 counts = row.lowest; counts <= row.highest; ++counts) {
            const std::optional<EncodedValue> encoded = encodeCounts(row.shape, counts);
            ASSERT_TRUE(encoded) << row.shape.wireType.toStdString() << ' ' << counts;
            ASSERT_EQ(readBack(row.shape, encoded->bytes), counts) << row.shape.wireType.toStdString();
            ASSERT_EQ(countsOf(row.shape, QString::number(valueOfCounts(row.shape, counts), 'g', 15)),
                      counts);
        }
        EXPECT_FALSE(encodeCounts(row.shape, row.highest + 1)) << row.shape.wireType.toStdString();
    }
}

} // namespace
