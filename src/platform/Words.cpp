#include "platform/Words.h"

#include <optional>
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

namespace {

// The text in the operator's language; none where there is no language, or none that has it: a failure must
// not hide behind the lack of its words.
std::optional<QString> textOf(const char* name)
{
    if (!installedWords())
        return std::nullopt;
    try {
        return installedWords()(QLatin1String(name));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

QString inWords(const char* name, const QStringList& values)
{
    const std::optional<QString> found = textOf(name);
    if (!found)
        return QLatin1String(name) + QStringLiteral(": ") + values.join(QStringLiteral(", "));
    const QString& text = *found;
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
