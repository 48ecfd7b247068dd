#include "values/Display.h"

#include <gtest/gtest.h>

using namespace values;

namespace {

const std::optional<QString> kNull;

struct Row
{
    std::optional<QString> value;
    const char* keyType;
    const char* mask;
    std::optional<QString> unit;
    QString shown;
};

TEST(DisplayTest, ShowsAValueByItsTag)
{
    const QString degrees = QStringLiteral("\u00B0C");
    const Row rows[] = {
        {"PUMP 1", "STRING", "", kNull, "PUMP 1"},
        {"", "STRING", "", kNull, ""},
        {"3", "ENUM", "", kNull, "<3>"},
        {"12.3", "REAL", "0.0", degrees, QStringLiteral("12.3 \u00B0C")},
        {"466", "REAL", "0.0", kNull, "466.0"},
        {"-2.5", "REAL", "0", QString("K"), "-3 K"},
        {"5", "REAL", "0", QString(""), "5 "},
        {"02:30:15", "TIME_H", "0.0", degrees, "02"},
        {"02:30:15", "TIME_HM", "", kNull, "02:30"},
        {"02:30:15", "TIME_HMS", "", kNull, "02:30:15"},
        {"2:30.5:00", "TIME_HM", "", kNull, "2:30.5:00"},
        {"12", "BLOB", "0", kNull, "?"},
    };
    const auto enumText = [](const QString& number) { return '<' + number + '>'; };
    for (const auto& row : rows)
        EXPECT_EQ(displayValue(row.value, row.keyType, row.mask, row.unit, enumText, "?"), row.shown)
            << row.keyType;
}

TEST(DisplayTest, ShowsAPlaceholderWhereNothingIsKnown)
{
    const Row rows[] = {
        {kNull, "REAL", "0.0", QString("K"), "--"},
        {kNull, "TIME_H", "", kNull, "--"},
        {kNull, "TIME_HM", "", kNull, "--.--"},
        {kNull, "TIME_HMS", "", kNull, "--.--.--"},
        {kNull, "STRING", "", kNull, ""},
        {kNull, "ENUM", "", kNull, ""},
        {kNull, "BLOB", "", kNull, "?"},
    };
    const auto unasked = [](const QString&) {
        ADD_FAILURE() << "nothing to look up";
        return QString();
    };
    for (const auto& row : rows)
        EXPECT_EQ(displayValue(row.value, row.keyType, row.mask, row.unit, unasked, "?"), row.shown)
            << row.keyType;
}

TEST(DisplayTest, AValueJustTypedKeepsTheBlankBeforeAUnitThatIsNotThere)
{
    const auto enumText = [](const QString& number) { return '<' + number + '>'; };
    const auto typed = [&](const std::optional<QString>& value, const char* keyType,
                           const std::optional<QString>& unit) {
        return displayTyped(value, {kindOf(QString(keyType)), "0.0", unit}, enumText);
    };
    EXPECT_EQ(typed("4.5", "REAL", kNull), "4.5 ");
    EXPECT_EQ(typed("4.5", "REAL", QString("K")), "4.5 K");
    EXPECT_EQ(typed(kNull, "REAL", kNull), "--");
    EXPECT_EQ(typed("2", "ENUM", kNull), "<2>");
    EXPECT_EQ(typed("PUMP", "STRING", kNull), "PUMP");
    EXPECT_EQ(typed("02:30:15", "TIME_HM", kNull), "02:30");
    EXPECT_EQ(typed(kNull, "TIME_HM", kNull), "--.--");
    EXPECT_EQ(typed("2", "BLOB", kNull), "");
}

} // namespace
