#include "session/Int16.h"

#include "support/Throws.h"

using namespace platform;
using support::errorOf;

namespace {

struct NumberRow
{
    const char* text;
    int number;
};

class Int16Test : public testing::TestWithParam<NumberRow>
{
};

TEST_P(Int16Test, ReadsNumbers)
{
    EXPECT_EQ(session::toInt16(GetParam().text), GetParam().number) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Texts, Int16Test,
                         testing::Values(NumberRow{"0", 0}, NumberRow{"-1", -1}, NumberRow{"+7", 7},
                                         NumberRow{" 180 ", 180}, NumberRow{"0012", 12},
                                         NumberRow{"32767", 32767}, NumberRow{"-32768", -32768},
                                         NumberRow{"2.5", 2}, NumberRow{"3.5", 4}, NumberRow{"-2,5", -2},
                                         NumberRow{".6", 1}, NumberRow{"5.", 5}, NumberRow{"1e2", 100},
                                         NumberRow{"32767.4", 32767}, NumberRow{"-32768.4", -32768},
                                         NumberRow{"1E-999", 0}));

struct FailureRow
{
    const char* text;
    int error;
};

class Int16FailureTest : public testing::TestWithParam<FailureRow>
{
};

TEST_P(Int16FailureTest, RefusesTheRest)
{
    EXPECT_EQ(errorOf([] { session::toInt16(GetParam().text); }), GetParam().error) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Int16FailureTest,
    testing::Values(FailureRow{"", errors::kTypeMismatch}, FailureRow{" ", errors::kTypeMismatch},
                    FailureRow{"True", errors::kTypeMismatch}, FailureRow{"1,000.5", errors::kTypeMismatch},
                    FailureRow{"1 2", errors::kTypeMismatch}, FailureRow{"--1", errors::kTypeMismatch},
                    FailureRow{"\t5", errors::kTypeMismatch}, FailureRow{"-", errors::kTypeMismatch},
                    FailureRow{".", errors::kTypeMismatch}, FailureRow{"0x10", errors::kTypeMismatch},
                    FailureRow{"inf", errors::kTypeMismatch}, FailureRow{"nan", errors::kTypeMismatch},
                    FailureRow{"1e", errors::kTypeMismatch}, FailureRow{"٣", errors::kTypeMismatch},
                    FailureRow{"32768", errors::kOverflow}, FailureRow{"32767.5", errors::kOverflow},
                    FailureRow{"-32769", errors::kOverflow}, FailureRow{"1e999", errors::kOverflow}));

} // namespace
