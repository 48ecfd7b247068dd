#include "values/WireType.h"

#include <QString>
#include <gtest/gtest.h>

using namespace values;

namespace {

TEST(WireTypeTest, KnowsTheTags)
{
    const std::pair<const char*, WireType> rows[] = {
        {"BYTE", WireType::Byte},
        {"S_BYTE", WireType::SignedByte},
        {"BIT", WireType::Bit},
        {"BCD", WireType::Bcd},
        {"WORD_L", WireType::WordLowFirst},
        {"WORD_H", WireType::WordHighFirst},
        {"INT_L", WireType::IntLowFirst},
        {"INT_H", WireType::IntHighFirst},
        {"STRING", WireType::Other},
        {"", WireType::Other},
        {"BYTES", WireType::Other},
        {"byte", WireType::Other},
    };
    for (const auto& [tag, type] : rows)
        EXPECT_EQ(wireTypeOf(QString(tag)), type) << tag;
    EXPECT_EQ(wireTypeOf({}), WireType::Other);
}

} // namespace
