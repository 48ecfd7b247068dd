#include "events/LoggedText.h"

#include "platform/CodePage.h"

#include <algorithm>

namespace events {

QString loggedText(const QString& text, int codePage)
{
    QByteArray bytes = platform::encode(text, codePage);
    std::replace_if(
        bytes.begin(), bytes.end(), [](char c) { return uchar(c) < ' '; }, ' ');
    return platform::decode(bytes, codePage);
}

} // namespace events
