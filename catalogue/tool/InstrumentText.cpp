#include "catalogue/tool/InstrumentText.h"

#include <QStringView>

namespace catalogue {

namespace {

// Each run of letters stands at consecutive codes.
struct Letters
{
    int first;
    QStringView letters;
};
constexpr Letters kUpperHalf[] = {{160, u"БГЁЖЗИЙЛПУФЧШЪЫЭЮЯбвгёжзийклмнптчшъыьэюя"}, {224, u"ДЦЩдфцщ"}};

constexpr QStringView kLookAlikes = u"АВЕКМНОРСТХЬаеорсух";
constexpr QStringView kLatin = u"ABEKMHOPCTXbaeopcyx";

std::optional<char> codeOf(QChar letter)
{
    if (letter >= ' ' && letter <= '~')
        return letter.toLatin1();
    if (const qsizetype at = kLookAlikes.indexOf(letter); at >= 0)
        return kLatin[at].toLatin1();
    for (const Letters& run : kUpperHalf)
        if (const qsizetype at = run.letters.indexOf(letter); at >= 0)
            return static_cast<char>(run.first + at);
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> instrumentText(const QString& text)
{
    QByteArray codes;
    for (const QChar letter : text) {
        const std::optional<char> code = codeOf(letter);
        if (!code)
            return std::nullopt;
        codes.append(*code);
    }
    return codes;
}

} // namespace catalogue
