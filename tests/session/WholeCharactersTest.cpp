#include "session/WholeCharacters.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using session::wholeCharacters;

namespace {

const QString kPair = QStringLiteral("\U0001F600");
const QString kHigh = kPair.left(1), kLow = kPair.mid(1);

TEST(WholeCharactersTest, HalvesGoAndPairsStay)
{
    const std::pair<QString, QString> rows[] = {
        {"", ""},
        {"A", "A"},
        {kPair, kPair},
        {"A" + kPair + "B", "A" + kPair + "B"},
        {kPair + kPair, kPair + kPair},
        {kHigh, ""},
        {kLow, ""},
        {"A" + kHigh, "A"},
        {kLow + "A", "A"},
        {kHigh + "A" + kLow, "A"},
        {kLow + kHigh, ""},
        {kHigh + kPair, kPair},
        {kPair + kLow, kPair},
        {kHigh + kHigh + kLow + kLow, kPair},
    };
    for (const auto& [text, whole] : rows)
        EXPECT_EQ(wholeCharacters(text), whole) << qPrintable(text);
}

} // namespace
