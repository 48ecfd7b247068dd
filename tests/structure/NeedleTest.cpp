#include "structure/Needle.h"

#include <gtest/gtest.h>

using structure::Needle;

namespace {

struct Case
{
    const char* needle;
    const char* text;
    bool isIn;
};

class NeedleTest : public testing::TestWithParam<Case>
{
};

TEST_P(NeedleTest, SaysTheSameOfTextsAndOfBytes)
{
    const auto& [needle, text, isIn] = GetParam();
    EXPECT_EQ(Needle(needle).isIn(QString(text)), isIn);
    EXPECT_EQ(Needle(needle).isIn(std::string_view(text)), isIn);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NeedleTest,
    testing::Values(Case{"fan", "A FAN runs", true}, Case{"FAN", "fan", true}, Case{"fan", "fa n", false},
                    Case{"fan", "", false}, Case{"fan", "ф fan", true}, Case{"камера", "КАМЕРА 1", true},
                    Case{"КАМ", "камера", true}, Case{"камера", "camera", false}, Case{"ё", "Ёлка", true},
                    Case{"°C", "4.5 °c", true}, Case{"%", "100 %", true}, Case{"%", "100", false},
                    Case{"_", "a_b", true}, Case{"_", "ab", false}, Case{"O'H", "o'hara", true},
                    Case{"\\", "a\\b", true}, Case{"❄", "cold ❄ room", true}, Case{"❄", "cold ☃", false},
                    Case{"aab", "aaab", true}));

} // namespace
