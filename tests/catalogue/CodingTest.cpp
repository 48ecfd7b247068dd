#include "catalogue/tool/Coding.h"
#include "tests/catalogue/Sources.h"

namespace catalogue {
namespace {

Parameter parameter(const char* key, const char* wire, Scale scale, double low, double high)
{
    Parameter result;
    result.key = key;
    result.wire = wire;
    result.size = result.wire == "BYTE" || result.wire == "S_BYTE" || result.wire == "BIT" ? 1 : 2;
    result.scale = scale;
    result.low = low;
    result.high = high;
    return result;
}

struct Row
{
    const char* name;
    Parameter parameter;
    QByteArray bytes;
    const char* text; // null: rejected by a limit
};

Parameter field(int first, int count)
{
    const double highest = (1 << count) - 1;
    Parameter result = parameter("ENUM", "BIT", {0, highest, 0, highest}, 0, highest);
    result.bitFirst = first;
    result.bitCount = count;
    return result;
}

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (const int value : values)
        result.append(static_cast<char>(value));
    return result;
}

std::vector<Row> rows()
{
    const Parameter halves = parameter("REAL", "BYTE", {0, 255, -50, 77.5}, -50, 77);
    const Parameter tenths = parameter("REAL", "BYTE", {0, 255, 0, 25.5}, 5, 25);
    const Parameter minutes = parameter("TIME_HM", "BYTE", {0, 255, 0, 76500}, 0, 76500);
    const Parameter hours = parameter("TIME_H", "BYTE", {0, 255, 0, 76500}, 0, 76500);
    const Parameter seconds = parameter("TIME_HMS", "BYTE", {0, 255, 0, 15300}, 0, 15240);
    const Parameter sign = parameter("REAL", "S_BYTE", {-128, 127, -128, 127}, -50, 100);
    const Parameter bcd = parameter("REAL", "BCD", {0, 999, 0, 99.9}, 0, 90);
    const Parameter low = parameter("REAL", "WORD_L", {0, 65535, 0, 6553.5}, 0, 6000);
    const Parameter high = parameter("REAL", "WORD_H", {0, 65535, 0, 6553.5}, 0, 6000);
    const Parameter intLow = parameter("REAL", "INT_L", {0, 65535, 0, 65535}, 0, 65000);
    const Parameter intHigh = parameter("REAL", "INT_H", {0, 65535, 0, 655.35}, 0, 60);
    return {{"half degrees", halves, bytes({60}), "-20"},
            {"half degrees, all ones", halves, bytes({255}), nullptr},
            {"tenths", tenths, bytes({123}), "12.3"},
            {"tenths below a positive limit", tenths, bytes({49}), nullptr},
            {"hours and minutes", minutes, bytes({30}), "02:30:00"},
            {"hours", hours, bytes({30}), "02:00:00"},
            {"seconds", seconds, bytes({61}), "01:01:00"},
            {"signed", sign, bytes({246}), "-10"},
            {"signed above", sign, bytes({101}), nullptr},
            {"signed below a negative limit", sign, bytes({128}), "-128"},
            {"bits", field(2, 3), bytes({44}), "3"},
            {"bcd", bcd, bytes({0x01, 0x23}), "12.3"},
            {"bcd minus", bcd, bytes({0xF1, 0x23}), "-12.3"},
            {"bcd above", bcd, bytes({0x09, 0x01}), nullptr},
            {"word low first", low, bytes({0x34, 0x12}), "466"},
            {"word high first", high, bytes({0x12, 0x34}), "466"},
            {"word all ones", low, bytes({0xFF, 0xFF}), nullptr},
            {"int low first", intLow, bytes({0xF6, 0x0F}), "4086"},
            {"int high first", intHigh, bytes({0x04, 0xD2}), "12.34"},
            {"int has no sign", intLow, bytes({0xF6, 0xFF}), nullptr}};
}

TEST(Coding, decodesEveryWireType)
{
    for (const Row& row : rows()) {
        const std::optional<QString> wanted = row.text ? std::optional<QString>(row.text) : std::nullopt;
        EXPECT_EQ(decoded(row.parameter, row.bytes), wanted) << row.name;
    }
}

TEST(Coding, goesBackToTheSameBytes)
{
    for (const Row& row : rows()) {
        if (row.text == nullptr || QByteArray(row.name) == "bits" || row.parameter.key == "TIME_H")
            continue; // a field has no neighbours here, an hour has lost its minutes
        const std::optional<int> raw = rawOf(row.parameter, row.text);
        ASSERT_TRUE(raw) << row.name;
        EXPECT_EQ(bytesOf(row.parameter, *raw).toHex(), row.bytes.toHex()) << row.name;
    }
}

TEST(Coding, putsAFieldInItsPlaceWithZerosAround)
{
    EXPECT_EQ(bytesOf(field(2, 3), 5), bytes({0b00010100}));
}

TEST(Coding, knowsNoCountForWhatIsNotOnTheScale)
{
    const Parameter halves = parameter("REAL", "BYTE", {0, 255, -50, 77.5}, -50, 77);
    for (const char* text : {"20.2", "-51", "78", "warm", "", "20.0"})
        EXPECT_EQ(rawOf(halves, text), std::nullopt) << text;
}

TEST(Coding, trimsATextAtTheRightOnly)
{
    Parameter text;
    text.wire = text.key = "STRING";
    text.size = 6;
    EXPECT_EQ(decoded(text, " AB   "), QString(" AB"));
    EXPECT_EQ(decoded(text, "      "), std::nullopt);
}

TEST(Coding, hasNoEncoderForReadings)
{
    for (const char* wire : {"S_BYTE", "BCD", "INT_L", "INT_H"})
        EXPECT_FALSE(hasEncoder(parameter("REAL", wire, {0, 255, 0, 255}, 0, 255))) << wire;
    for (const char* wire : {"BYTE", "WORD_L", "WORD_H", "BIT", "STRING"})
        EXPECT_TRUE(hasEncoder(parameter("REAL", wire, {0, 255, 0, 255}, 0, 255))) << wire;
    EXPECT_FALSE(hasEncoder(parameter("TIME_H", "BYTE", {0, 255, 0, 255}, 0, 255)));
    EXPECT_FALSE(hasEncoder(parameter("TIME_HMS", "BYTE", {0, 255, 0, 255}, 0, 255)));
    EXPECT_TRUE(hasEncoder(parameter("TIME_HM", "BYTE", {0, 255, 0, 255}, 0, 255)));
}

} // namespace
} // namespace catalogue
