#include "platform/CodePage.h"

#include "platform/CodePageTables.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int kUpperHalfStart = 0x80;

char encodeUpper(char16_t character, const UpperHalf& page)
{
    const auto found = std::find(page.begin(), page.end(), character);
    return found == page.end() ? '?' : static_cast<char>(kUpperHalfStart + (found - page.begin()));
}

} // namespace

int codePageOf(int charset)
{
    switch (charset) {
    case 161:
        return 1253;
    case 162:
        return 1254;
    case 177:
        return 1255;
    case 178:
        return 1256;
    case 204:
        return 1251;
    case 222:
        return 874;
    case 238:
        return 1250;
    default:
        return 1252;
    }
}

QByteArray encode(const QString& text, int codePage)
{
    const UpperHalf& page = upperHalfOf(codePage);
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        bytes += character.unicode() < kUpperHalfStart ? static_cast<char>(character.unicode())
                                                       : encodeUpper(character.unicode(), page);
        // The two halves of a surrogate pair are one character, and one "?".
        if (character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    return bytes;
}

QString decode(const QByteArray& bytes, int codePage)
{
    const UpperHalf& page = upperHalfOf(codePage);
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [&page](char byte) {
        const auto code = static_cast<uchar>(byte);
        return QChar(code < kUpperHalfStart ? char16_t(code) : page[code - kUpperHalfStart]);
    });
    return text;
}

} // namespace platform
