#include "session/Charset.h"

#include "platform/CodePage.h"
#include "session/Session.h"

#include <algorithm>
#include <iterator>

namespace session {

namespace {

struct Row
{
    const char* locale; // a language, or one of its locales that differs from it
    int charset;
};

// What differs stands before its language.
constexpr Row kCharsets[] = {
    {"ar", 178},        {"be", 204}, {"cs", 238},    {"el", 161},    {"et", 204},    {"he", 177},
    {"hu", 238},        {"ja", 128}, {"ko", 129},    {"lt", 204},    {"lv", 204},    {"pl", 238},
    {"ru", 204},        {"sk", 238}, {"sl", 204},    {"th", 222},    {"tr", 162},    {"uk", 204},
    {"sr_RS@latin", 0}, {"sr", 204}, {"zh_CN", 134}, {"zh_HK", 134}, {"zh_SG", 134}, {"zh", 136},
};

// "sr_RS.UTF-8@latin" without its encoding.
QString withoutEncoding(const QString& name)
{
    const QString modifier = name.section(QLatin1Char('@'), 1, -1, QString::SectionIncludeLeadingSep);
    return name.section(QLatin1Char('@'), 0, 0).section(QLatin1Char('.'), 0, 0) + modifier;
}

} // namespace

int charsetOfLocale(const QString& name)
{
    const QString whole = withoutEncoding(name);
    const QString plain = whole.section(QLatin1Char('@'), 0, 0);
    const QString language = plain.section(QLatin1Char('_'), 0, 0);
    const auto row = std::find_if(std::begin(kCharsets), std::end(kCharsets), [&](const Row& known) {
        const QLatin1String locale(known.locale);
        return whole == locale || plain == locale || language == locale;
    });
    return row == std::end(kCharsets) ? 0 : row->charset;
}

void applyMachineLocale(Session& session, const QString& locale)
{
    session.Charset = charsetOfLocale(locale);
    session.CodePage = platform::codePageOf(session.Charset);
}

} // namespace session
