#include "values/StringValue.h"

#include "platform/CodePage.h"
#include "values/Coding.h"
#include "values/Cyrillic.h"

namespace values {

namespace {

constexpr int kCyrillicPage = 1251;

bool isRussian(const QString& languageCode)
{
    return languageCode == QLatin1String("RU");
}

QByteArray withoutTrailingBlanks(QByteArray text)
{
    while (text.endsWith(' '))
        text.chop(1);
    return text;
}

QByteArray instrumentBytes(const QString& text, const QString& languageCode, int codePage)
{
    return isRussian(languageCode) ? Translate_RUChrOut(platform::encode(text, kCyrillicPage))
                                   : platform::encode(text, codePage);
}

} // namespace

QString decodeString(const QByteArray& raw, const QString& languageCode, int codePage)
{
    const QByteArray text = withoutTrailingBlanks(raw);
    return isRussian(languageCode) ? platform::decode(Translate_RUChrIn(text), kCyrillicPage)
                                   : platform::decode(text, codePage);
}

QByteArray encodeString(const std::optional<QString>& value, const QString& languageCode, int codePage,
                        int size)
{
    return Compose_Str(value ? instrumentBytes(*value, languageCode, codePage) : QByteArray(), size);
}

} // namespace values
