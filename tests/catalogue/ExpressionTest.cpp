#include "catalogue/tool/Expression.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

const Origin kHere{QStringLiteral("here.txt"), 7};

struct Expansion
{
    const char* text;
    const char* expanded;
};

class Expand : public ::testing::TestWithParam<Expansion>
{
};

TEST_P(Expand, givesTheValueInPlace)
{
    const Variables variables{{"n", 3}, {"t", 12}};
    EXPECT_EQ(expand(GetParam().text, variables, kHere), QString(GetParam().expanded));
}

INSTANTIATE_TEST_SUITE_P(Lines, Expand,
                         ::testing::Values(Expansion{"no braces", "no braces"}, Expansion{"{n}", "3"},
                                           Expansion{"P{t:02}{n:02}", "P1203"}, Expansion{"{n:04}", "0003"},
                                           Expansion{"{16+4*(n-1)}", "24"}, Expansion{"{2 * n + 1}", "7"},
                                           Expansion{"{1-2-3}", "-4"},
                                           Expansion{"set:{40+n}.{n-1}", "set:43.2"}));

class Refusal : public ::testing::TestWithParam<Expansion>
{
};

TEST_P(Refusal, saysWhy)
{
    const std::string reason = testing::refusal([] { expand(GetParam().text, {}, kHere); });
    EXPECT_THAT(reason, ::testing::StartsWith("here.txt:7: "));
    EXPECT_THAT(reason, ::testing::HasSubstr(GetParam().expanded));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, Refusal,
    ::testing::Values(Expansion{"{x}", "\"x\" is not known here"}, Expansion{"{1+}", "is not an expression"},
                      Expansion{"{(1}", "is not an expression"}, Expansion{"{1 2}", "is not an expression"},
                      Expansion{"{}", "is not an expression"}, Expansion{"{1", "nothing closes"},
                      Expansion{"{1:x}", "width"}, Expansion{"{1:0}", "width"}));

} // namespace
} // namespace catalogue
