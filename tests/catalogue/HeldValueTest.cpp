#include "catalogue/tool/HeldValue.h"
#include "tests/catalogue/Sources.h"

#include <QRegularExpression>
#include <QSet>

namespace catalogue {
namespace {

Parameter reading(const char* standard, double spread)
{
    Parameter parameter;
    parameter.id = "P010101";
    parameter.key = "REAL";
    parameter.wire = "BYTE";
    parameter.size = 1;
    parameter.scale = {0, 255, -50, 77.5};
    parameter.low = -50;
    parameter.high = 77;
    parameter.standard = standard;
    parameter.spread = spread;
    return parameter;
}

TEST(HeldValue, isTheStandardWhereNothingStrays)
{
    EXPECT_EQ(valueHeld(reading("2.5", 0), {1, 1, "11"}), QString("2.5"));
    Parameter unknown = reading("", 0);
    unknown.standard.reset();
    EXPECT_EQ(valueHeld(unknown, {1, 1, "11"}), std::nullopt);
}

// In steps of half a degree, one to either side at most.
TEST(HeldValue, straysAsFarAsItMayAndNoFarther)
{
    QSet<QString> values;
    for (int plant = 1; plant <= 6; ++plant)
        for (int instrument = 1; instrument <= 12; ++instrument)
            values << *valueHeld(reading("2.5", 1), {plant, instrument, "11"});
    EXPECT_EQ(values, QSet<QString>({"1.5", "2", "2.5", "3", "3.5"}));
}

TEST(HeldValue, isTheSameForTheSameInstrument)
{
    EXPECT_EQ(valueHeld(reading("2.5", 20), {2, 3, "11"}), valueHeld(reading("2.5", 20), {2, 3, "12"}));
    EXPECT_NE(valueHeld(reading("2.5", 20), {2, 3, "11"}), valueHeld(reading("2.5", 20), {2, 4, "11"}));
}

TEST(HeldValue, tellsTheInstrumentsOwnAddressAndNumber)
{
    EXPECT_EQ(valueHeld(reading("@address", 0), {2, 3, "A7"}), QString("A7"));
    QSet<QString> numbers;
    for (int plant = 1; plant <= 6; ++plant)
        for (int instrument = 1; instrument <= 12; ++instrument) {
            const QString number = *valueHeld(reading("@serial", 0), {plant, instrument, "A7"});
            EXPECT_TRUE(number.contains(QRegularExpression("^(1[5-9]|20)([0-4][0-9]|5[0-2])[0-9]{4}$")))
                << number.toStdString();
            EXPECT_FALSE(number.mid(2).startsWith("00")) << number.toStdString();
            numbers << number;
        }
    EXPECT_EQ(numbers.size(), 72);
}

TEST(HeldValue, keepsATimeWithItsSeconds)
{
    Parameter time = reading("", 0);
    time.key = "TIME_HM";
    EXPECT_EQ(storedValue(time, {"P010101", "22:30", 0, {}}), QString("22:30:00"));
    EXPECT_EQ(storedValue(time, {"P010101", std::nullopt, 0, {}}), std::nullopt);
    EXPECT_EQ(storedValue(time, {"P010101", "0", 2, {}}), QString("0"));
    EXPECT_EQ(storedValue(reading("", 0), {"P010101", "22.5", 0, {}}), QString("22.5"));
    EXPECT_EQ(testing::refusal([&] {
                  storedValue(time, {"P010101", "22", 0, {"demo.txt", 3}});
              }),
              "demo.txt:3: \"22\" is no time such as 07:30");
}

} // namespace
} // namespace catalogue
