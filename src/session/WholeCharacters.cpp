#include "session/WholeCharacters.h"

namespace session {

QString wholeCharacters(QString text)
{
    for (qsizetype at = text.size() - 1; at >= 0; --at) {
        if (text[at].isLowSurrogate() && at > 0 && text[at - 1].isHighSurrogate())
            --at; // a pair
        else if (text[at].isSurrogate())
            text.remove(at, 1);
    }
    return text;
}

} // namespace session
