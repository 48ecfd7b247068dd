#include "exchange/TraceReader.h"

#include "platform/Words.h"

#include <QDir>

namespace exchange {

TraceReader::TraceReader(const QString& path, int codePage) : file_(path), codePage_(codePage)
{
    if (!file_.open(QIODevice::ReadOnly))
        fail(file_.error() == QFileDevice::PermissionsError ? platform::errors::kPermissionDenied
                                                            : platform::errors::kFileNotFound);
}

std::optional<TraceLine> TraceReader::next()
{
    while (!file_.atEnd()) {
        QByteArray line = file_.readLine(kLongestLine);
        ++number_;
        if (line.isEmpty())
            fail(platform::errors::kDeviceIo);
        if (line.endsWith('\n'))
            line.chop(1);
        else if (!file_.atEnd())
            platform::failInWords(platform::errors::kInvalidCall, "import.noend",
                                  {QDir::toNativeSeparators(file_.fileName()), QString::number(number_)});
        if (line.endsWith('\r'))
            line.chop(1);
        length_ = line.size();
        if (!line.isEmpty())
            return TraceLine(line, codePage_);
    }
    return std::nullopt;
}

void TraceReader::rewind()
{
    if (!file_.seek(0))
        fail(platform::errors::kDeviceIo);
    number_ = 0;
    length_ = 0;
}

void TraceReader::fail(int number) const
{
    platform::fail(number, QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file_.fileName()),
                                                        file_.errorString()));
}

} // namespace exchange
