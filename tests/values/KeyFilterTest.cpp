#include "values/KeyFilter.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using values::filterNumberKey;
using values::filterTextKey;

namespace {

TEST(KeyFilter, NumberFieldsTakeWhatTheirKindNeeds)
{
    const struct
    {
        const char* keyType;
        const char* mask;
        QString accepted;
        QString dropped;
    } rows[] = {
        {"REAL", "0", "0123456789-", ",.aE+ /:"}, {"REAL", "0.0", "0123456789-,.", "aE+ /"},
        {"REAL", "#,##0", "09-,.", "e"},          {"REAL", "", "09-,.", "e"},
        {"TIME_H", "", "0123456789", "-,.:a"},    {"TIME_HM", "", "09", "-,.:a"},
        {"TIME_HMS", "0", "09", "-,.:a"},
    };
    for (const auto& row : rows) {
        for (const QChar key : row.accepted)
            EXPECT_EQ(filterNumberKey(key, row.keyType, row.mask), QString(key)) << row.keyType << row.mask;
        for (const QChar key : row.dropped)
            EXPECT_EQ(filterNumberKey(key, row.keyType, row.mask), std::nullopt)
                << row.keyType << row.mask << QString(key).toStdString();
    }
}

TEST(KeyFilter, DigitsOfOtherScriptsAreNoDigits)
{
    for (const char* key : {"１", "٣", "²", "½"}) {
        EXPECT_EQ(filterNumberKey(QString::fromUtf8(key), "REAL", "0.0"), std::nullopt) << key;
        EXPECT_EQ(filterNumberKey(QString::fromUtf8(key), "TIME_H", ""), std::nullopt) << key;
    }
}

TEST(KeyFilter, AnyOtherKindIsRaisedToCapitals)
{
    EXPECT_EQ(filterNumberKey("a", "ENUM", ""), QString("A"));
    EXPECT_EQ(filterNumberKey("5", "", ""), QString("5"));
}

TEST(KeyFilter, TextFieldsTakeCapitals)
{
    const std::pair<QString, QString> rows[] = {
        {"a", "A"}, {"Z", "Z"}, {"'", "'"}, {"%", "%"}, {"ж", "Ж"}, {"è", "È"}, {"7", "7"}, {"😀", "😀"},
    };
    for (const auto& [typed, taken] : rows)
        EXPECT_EQ(filterTextKey(typed), taken);
}

} // namespace
