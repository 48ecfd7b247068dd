#include "platform/Words.h"

#include <utility>

namespace platform {

namespace {
Words& installedWords()
{
    static Words words;
    return words;
}
} // namespace

Words setWords(Words words)
{
    return std::exchange(installedWords(), std::move(words));
}

QString inWords(const char* name, const QStringList& values)
{
    if (!installedWords())
        return QLatin1String(name) + QStringLiteral(": ") + values.join(QStringLiteral(", "));
    const QString text = installedWords()(QLatin1String(name));
    switch (values.size()) {
    case 0:
        return text;
    case 1:
        return text.arg(values[0]);
    default:
        return text.arg(values[0], values[1]);
    }
}

void failInWords(int number, const char* name, const QStringList& values)
{
    fail(number, inWords(name, values));
}

} // namespace platform
