#include "exchange/DataTrace.h"

#include "exchange/Fields.h"
#include "platform/CodePage.h"

namespace exchange {

QByteArray traceLine(const TraceTexts& texts, int codePage)
{
    QByteArray line;
    line.reserve(kTraceLength);
    for (std::size_t field = 0; field < texts.size(); ++field)
        line += fixedField(texts[field], kTraceFields[field].width, codePage);
    return line;
}

TraceLine::TraceLine(const QByteArray& bytes, int codePage)
{
    for (std::size_t field = 0; field < texts.size(); ++field) {
        QByteArray part = bytes.mid(kTraceFields[field].begin, kTraceFields[field].width);
        while (part.endsWith(' '))
            part.chop(1);
        texts[field] = platform::decode(part, codePage);
    }
}

TraceKind TraceLine::kind() const
{
    if ((*this)[1].isEmpty())
        return (*this)[2].isEmpty() ? TraceKind::Group : TraceKind::None;
    return (*this)[2].isEmpty() ? TraceKind::Instrument : TraceKind::Parameter;
}

bool TraceLine::isFull(std::size_t field) const
{
    return texts[field - 1].size() == kTraceFields[field - 1].width;
}

} // namespace exchange
