#include "session/Charset.h"

#include "session/Session.h"

#include <gtest/gtest.h>

using namespace session;

namespace {

TEST(CharsetTest, EveryArabicLocaleSharesOneSet)
{
    for (int country = 1; country <= 16; ++country)
        EXPECT_EQ(charsetOfLocale(country * 1024 + 1), 178) << country;
    EXPECT_EQ(charsetOfLocale(17 * 1024 + 1), 0);
}

TEST(CharsetTest, TheCyrillicRunIsTakenWhole)
{
    for (int locale = 1058; locale <= 1063; ++locale)
        EXPECT_EQ(charsetOfLocale(locale), 204) << locale;
    EXPECT_EQ(charsetOfLocale(1057), 0);
    EXPECT_EQ(charsetOfLocale(1064), 0);
}

struct LocaleRow
{
    int localeId;
    int charset;
    int codePage;
};

class MachineLocaleTest : public testing::TestWithParam<LocaleRow>
{
};

TEST_P(MachineLocaleTest, GivesTheSessionItsSetAndPage)
{
    Session session;
    applyMachineLocale(session, GetParam().localeId);
    EXPECT_EQ(session.Charset, GetParam().charset) << GetParam().localeId;
    EXPECT_EQ(session.CodePage, GetParam().codePage) << GetParam().localeId;
}

INSTANTIATE_TEST_SUITE_P(
    Locales, MachineLocaleTest,
    testing::Values(LocaleRow{1040, 0, 1252}, LocaleRow{1033, 0, 1252}, LocaleRow{0, 0, 1252},
                    LocaleRow{-1, 0, 1252}, LocaleRow{1049, 204, 1251}, LocaleRow{3098, 204, 1251},
                    LocaleRow{1029, 238, 1250}, LocaleRow{1038, 238, 1250}, LocaleRow{1045, 238, 1250},
                    LocaleRow{1051, 238, 1250}, LocaleRow{1032, 161, 1253}, LocaleRow{1055, 162, 1254},
                    LocaleRow{1037, 177, 1255}, LocaleRow{1025, 178, 1256}, LocaleRow{1054, 222, 874},
                    LocaleRow{1028, 136, 1252}, LocaleRow{1041, 128, 1252}, LocaleRow{1042, 129, 1252},
                    LocaleRow{2052, 134, 1252}, LocaleRow{3076, 134, 1252}, LocaleRow{4100, 134, 1252}));

} // namespace
