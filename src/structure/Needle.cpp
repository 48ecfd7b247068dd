#include "structure/Needle.h"

#include <algorithm>

namespace structure {

namespace {

bool isAscii(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

char lowered(char character)
{
    return character >= 'A' && character <= 'Z' ? char(character - 'A' + 'a') : character;
}

} // namespace

Needle::Needle(const QString& text) : text_(text)
{
    std::string bytes = text.toStdString();
    if (!std::all_of(bytes.begin(), bytes.end(), isAscii))
        return;
    std::transform(bytes.begin(), bytes.end(), bytes.begin(), lowered);
    ascii_ = std::move(bytes);
}

bool Needle::isIn(std::string_view utf8) const
{
    if (!ascii_.empty()) {
        const auto same = [](char one, char other) { return lowered(one) == other; };
        return std::search(utf8.begin(), utf8.end(), ascii_.begin(), ascii_.end(), same) != utf8.end();
    }
    // No case of a letter beyond ASCII is written with ASCII alone.
    if (std::all_of(utf8.begin(), utf8.end(), isAscii))
        return isEmpty();
    return isIn(QString::fromUtf8(utf8.data(), qsizetype(utf8.size())));
}

} // namespace structure
