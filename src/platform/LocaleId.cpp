#include "platform/Machine.h"

#include <QByteArray>
#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr int kEnglishUnitedStates = 1033;

struct Locale
{
    const char* name; // language, "_", country, and "@" with what sets it apart
    int id;
};

// A language's first row stands for it when the country isn't known.
constexpr std::array kLocales{
    Locale{"ar_SA", 1025},  Locale{"ar_IQ", 2049},  Locale{"ar_EG", 3073},       Locale{"ar_LY", 4097},
    Locale{"ar_DZ", 5121},  Locale{"ar_MA", 6145},  Locale{"ar_TN", 7169},       Locale{"ar_OM", 8193},
    Locale{"ar_YE", 9217},  Locale{"ar_SY", 10241}, Locale{"ar_JO", 11265},      Locale{"ar_LB", 12289},
    Locale{"ar_KW", 13313}, Locale{"ar_AE", 14337}, Locale{"ar_BH", 15361},      Locale{"ar_QA", 16385},
    Locale{"be_BY", 1059},  Locale{"bg_BG", 1026},  Locale{"ca_ES", 1027},       Locale{"cs_CZ", 1029},
    Locale{"da_DK", 1030},  Locale{"de_DE", 1031},  Locale{"de_CH", 2055},       Locale{"de_AT", 3079},
    Locale{"de_LU", 4103},  Locale{"de_LI", 5127},  Locale{"el_GR", 1032},       Locale{"en_US", 1033},
    Locale{"en_GB", 2057},  Locale{"en_AU", 3081},  Locale{"en_CA", 4105},       Locale{"en_NZ", 5129},
    Locale{"en_IE", 6153},  Locale{"en_ZA", 7177},  Locale{"es_ES", 1034},       Locale{"es_MX", 2058},
    Locale{"es_AR", 11274}, Locale{"es_CL", 13322}, Locale{"es_CO", 9226},       Locale{"et_EE", 1061},
    Locale{"eu_ES", 1069},  Locale{"fa_IR", 1065},  Locale{"fi_FI", 1035},       Locale{"fr_FR", 1036},
    Locale{"fr_BE", 2060},  Locale{"fr_CA", 3084},  Locale{"fr_CH", 4108},       Locale{"fr_LU", 5132},
    Locale{"he_IL", 1037},  Locale{"hr_HR", 1050},  Locale{"hu_HU", 1038},       Locale{"id_ID", 1057},
    Locale{"is_IS", 1039},  Locale{"it_IT", 1040},  Locale{"it_CH", 2064},       Locale{"ja_JP", 1041},
    Locale{"ko_KR", 1042},  Locale{"lt_LT", 1063},  Locale{"lv_LV", 1062},       Locale{"mk_MK", 1071},
    Locale{"nb_NO", 1044},  Locale{"nl_NL", 1043},  Locale{"nl_BE", 2067},       Locale{"nn_NO", 2068},
    Locale{"no_NO", 1044},  Locale{"pl_PL", 1045},  Locale{"pt_PT", 2070},       Locale{"pt_BR", 1046},
    Locale{"ro_RO", 1048},  Locale{"ru_RU", 1049},  Locale{"sk_SK", 1051},       Locale{"sl_SI", 1060},
    Locale{"sq_AL", 1052},  Locale{"sr_RS", 3098},  Locale{"sr_RS@latin", 2074}, Locale{"sv_SE", 1053},
    Locale{"sv_FI", 2077},  Locale{"th_TH", 1054},  Locale{"tr_TR", 1055},       Locale{"uk_UA", 1058},
    Locale{"ur_PK", 1056},  Locale{"vi_VN", 1066},  Locale{"zh_TW", 1028},       Locale{"zh_CN", 2052},
    Locale{"zh_HK", 3076},  Locale{"zh_SG", 4100},
};

// "sr_RS.UTF-8@latin" without its encoding.
QString withoutEncoding(const QString& name)
{
    const QString modifier = name.section(QLatin1Char('@'), 1, -1, QString::SectionIncludeLeadingSep);
    return name.section(QLatin1Char('@'), 0, 0).section(QLatin1Char('.'), 0, 0) + modifier;
}

const Locale* find(const QString& name)
{
    const auto found = std::find_if(kLocales.begin(), kLocales.end(),
                                    [&](const Locale& locale) { return name == QLatin1String(locale.name); });
    return found == kLocales.end() ? nullptr : found;
}

const Locale* findLanguage(const QString& language)
{
    const auto found = std::find_if(kLocales.begin(), kLocales.end(), [&](const Locale& locale) {
        return QLatin1String(locale.name).startsWith(language + QLatin1Char('_'));
    });
    return found == kLocales.end() ? nullptr : found;
}

} // namespace

int localeIdOf(const QString& name)
{
    const QString whole = withoutEncoding(name);
    const QString plain = whole.section(QLatin1Char('@'), 0, 0);
    const QString language = plain.section(QLatin1Char('_'), 0, 0);
    for (const Locale* locale : {find(whole), find(plain), findLanguage(language)})
        if (locale)
            return locale->id;
    return kEnglishUnitedStates;
}

int localeIdOfMachine()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            return localeIdOf(name);
    }
    return kEnglishUnitedStates;
}

} // namespace platform
