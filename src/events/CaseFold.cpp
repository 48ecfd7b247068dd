#include "events/CaseFold.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace events {

CaseFold::CaseFold(int codePage)
{
    QByteArray bytes(256, Qt::Uninitialized);
    std::iota(bytes.begin(), bytes.end(), char(0));
    QString letters = platform::decode(bytes, codePage);
    // Letter by letter: "ß" stays one.
    std::transform(letters.begin(), letters.end(), letters.begin(), [](QChar c) { return c.toCaseFolded(); });
    std::vector<QChar> order(letters.begin(), letters.end());
    std::sort(order.begin(), order.end());
    order.erase(std::unique(order.begin(), order.end()), order.end());
    for (std::size_t byte = 0; byte < ranks_.size(); ++byte) {
        const auto place = std::lower_bound(order.begin(), order.end(), letters[qsizetype(byte)]);
        ranks_[byte] = uchar(place - order.begin() + 1);
    }
}

quint64 CaseFold::key(QByteArrayView text, qsizetype at) const
{
    quint64 key = 0;
    const qsizetype length = std::clamp<qsizetype>(text.size() - at, 0, 8);
    for (qsizetype i = 0; i < length; ++i)
        key = key << 8 | rank(text[at + i]);
    return length == 0 ? 0 : key << 8 * (8 - length);
}

} // namespace events
