#include "exchange/DataTrace.h"

#include "exchange/Fields.h"
#include "platform/CodePage.h"

#include <algorithm>

namespace exchange {

QByteArray traceLine(const TraceTexts& texts, int codePage)
{
    QByteArray line;
    line.reserve(kTraceLength + qsizetype(sizeof kLineEnd));
    for (std::size_t field = 0; field < texts.size(); ++field)
        appendFixedField(line, texts[field], kTraceFields[field].width, codePage);
    return line;
}

TraceLine::TraceLine(const QByteArray& bytes, int codePage)
{
    for (std::size_t field = 0; field < texts.size(); ++field) {
        const qsizetype begin = std::min<qsizetype>(kTraceFields[field].begin, bytes.size());
        qsizetype end = std::min<qsizetype>(begin + kTraceFields[field].width, bytes.size());
        while (end > begin && bytes[end - 1] == ' ')
            --end;
        texts[field] = platform::decode(bytes.mid(begin, end - begin), codePage);
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
