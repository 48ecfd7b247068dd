#include "events/Narrowing.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace events {

namespace {

template <std::size_t count>
std::array<bool, count> holding(const std::array<QString, count>& words, const QString& text)
{
    std::array<bool, count> hold{};
    std::transform(words.begin(), words.end(), hold.begin(),
                   [&](const QString& word) { return word.contains(text, Qt::CaseInsensitive); });
    return hold;
}

} // namespace

Narrowing::Narrowing(const QString& text, const EventWords& words, const CaseFold& fold, int codePage)
    : fold_(fold), all_(text.isEmpty()), bytes_(platform::encode(text, codePage)),
      types_(holding(words.types, text)), sources_(holding(words.sources, text))
{
    mayBeDate_ = std::all_of(text.begin(), text.end(),
                             [](QChar c) { return QStringLiteral("0123456789/: ").contains(c); });
    // What the code page lacks stands in no file.
    if (platform::decode(bytes_, codePage) == text)
        std::transform(bytes_.begin(), bytes_.end(), std::back_inserter(ranks_),
                       [&](char byte) { return char(fold.rank(byte)); });
}

bool Narrowing::shows(const StoredEvent& event) const
{
    return all_ || types_[std::size_t(event.type)] || sources_[std::size_t(event.source)] ||
           isIn(event.description) || isIn(event.instrument) || isIn(event.equipment) || isInDate(event);
}

bool Narrowing::isIn(QByteArrayView text) const
{
    return !ranks_.isEmpty() &&
           std::search(text.begin(), text.end(), ranks_.begin(), ranks_.end(), [this](char byte, char rank) {
               return fold_.rank(byte) == uchar(rank);
           }) != text.end();
}

bool Narrowing::isInDate(const StoredEvent& event) const
{
    if (event.when == kNoStamp)
        return isIn(event.dateText);
    if (!mayBeDate_)
        return false;
    const auto date = sortableText(event.when);
    return std::search(date.begin(), date.end(), bytes_.begin(), bytes_.end()) != date.end();
}

} // namespace events
