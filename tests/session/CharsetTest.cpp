#include "session/Charset.h"

#include "session/Session.h"

#include <gtest/gtest.h>

using namespace session;

namespace {

struct LocaleRow
{
    const char* locale;
    int charset;
    int codePage;
};

class MachineLocaleTest : public testing::TestWithParam<LocaleRow>
{
};

TEST_P(MachineLocaleTest, GivesTheSessionItsSetAndPage)
{
    Session session;
    session.Charset = 7;
    applyMachineLocale(session, GetParam().locale);
    EXPECT_EQ(session.Charset, GetParam().charset) << GetParam().locale;
    EXPECT_EQ(session.CodePage, GetParam().codePage) << GetParam().locale;
}

INSTANTIATE_TEST_SUITE_P(Western, MachineLocaleTest,
                         testing::Values(LocaleRow{"it_IT.UTF-8", 0, 1252}, LocaleRow{"en_US", 0, 1252},
                                         LocaleRow{"C", 0, 1252}, LocaleRow{"C.UTF-8", 0, 1252},
                                         LocaleRow{"POSIX", 0, 1252}, LocaleRow{"", 0, 1252},
                                         LocaleRow{"xx_XX", 0, 1252}, LocaleRow{"_RU", 0, 1252},
                                         LocaleRow{"r", 0, 1252}, LocaleRow{"rus", 0, 1252},
                                         LocaleRow{"it_IT@euro", 0, 1252}, LocaleRow{"bg_BG", 0, 1252},
                                         LocaleRow{"hr_HR", 0, 1252}));

INSTANTIATE_TEST_SUITE_P(Cyrillic, MachineLocaleTest,
                         testing::Values(LocaleRow{"ru_RU.UTF-8", 204, 1251},
                                         LocaleRow{"ru_UA.KOI8-R", 204, 1251}, LocaleRow{"ru", 204, 1251},
                                         LocaleRow{"uk_UA", 204, 1251}, LocaleRow{"be_BY", 204, 1251},
                                         LocaleRow{"sl_SI", 204, 1251}, LocaleRow{"et_EE", 204, 1251},
                                         LocaleRow{"lv_LV", 204, 1251}, LocaleRow{"lt_LT", 204, 1251},
                                         LocaleRow{"sr_RS.UTF-8", 204, 1251},
                                         LocaleRow{"sr_RS.UTF-8@latin", 0, 1252},
                                         LocaleRow{"sr_RS@latin", 0, 1252}));

INSTANTIATE_TEST_SUITE_P(Others, MachineLocaleTest,
                         testing::Values(LocaleRow{"cs_CZ", 238, 1250}, LocaleRow{"hu_HU", 238, 1250},
                                         LocaleRow{"pl_PL", 238, 1250}, LocaleRow{"sk_SK", 238, 1250},
                                         LocaleRow{"el_GR", 161, 1253}, LocaleRow{"tr_TR", 162, 1254},
                                         LocaleRow{"he_IL", 177, 1255}, LocaleRow{"ar_EG.UTF-8", 178, 1256},
                                         LocaleRow{"ar_SA", 178, 1256}, LocaleRow{"th_TH", 222, 874},
                                         LocaleRow{"zh_TW.BIG5", 136, 1252}, LocaleRow{"zh_XX", 136, 1252},
                                         LocaleRow{"zh_CN", 134, 1252}, LocaleRow{"zh_HK.UTF-8", 134, 1252},
                                         LocaleRow{"zh_SG", 134, 1252}, LocaleRow{"ja_JP", 128, 1252},
                                         LocaleRow{"ko_KR", 129, 1252}));

} // namespace
