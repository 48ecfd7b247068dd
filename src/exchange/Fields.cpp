#include "exchange/Fields.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace exchange {

using platform::withoutControls;

namespace {

// Most texts are: they are the same bytes in every code page.
bool isPlain(const QString& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character >= u' ' && character < QChar(0x7F); });
}

// A control character of the upper half is one only where the page has no place for it: a byte that the page
// leaves undefined goes back as it came.
void blankUpperControls(const QString& line, QByteArray& bytes, int codePage)
{
    const auto upper = [](QChar character) { return character.category() == QChar::Other_Control; };
    if (std::none_of(line.begin(), line.end(), upper))
        return;
    bytes.clear();
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool pair = line[i].isHighSurrogate() && i + 1 < line.size() && line[i + 1].isLowSurrogate();
        const QByteArray one = platform::encode(line.mid(i, pair ? 2 : 1), codePage);
        bytes += upper(line[i]) && one == "?" ? QByteArray(" ") : one;
        i += pair;
    }
}

} // namespace

QByteArray pageField(const QString& text, int codePage)
{
    if (isPlain(text))
        return text.toLatin1();
    const QString line = withoutControls(text);
    QByteArray bytes = platform::encode(line, codePage);
    blankUpperControls(line, bytes, codePage);
    return bytes;
}

QByteArray fixedField(const QString& text, int width, int codePage)
{
    QByteArray field;
    appendFixedField(field, text, width, codePage);
    return field;
}

void appendFixedField(QByteArray& line, const QString& text, int width, int codePage)
{
    const QByteArray field = text.isEmpty() ? QByteArray() : pageField(text, codePage).left(width);
    line.append(field).append(width - field.size(), ' ');
}

QByteArray trimmedField(const QString& text, int codePage)
{
    QByteArray field = pageField(text, codePage);
    while (field.endsWith(' '))
        field.chop(1);
    return field;
}

} // namespace exchange
