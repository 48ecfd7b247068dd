#include "session/TextBlock.h"

#include "platform/RuntimeError.h"

#include <QFile>

namespace session {

using platform::fail;

TextBlock TextBlock::fromFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(platform::errors::kFileNotFound, QStringLiteral("The texts '%1' can't be read.").arg(path));
    TextBlock block;
    block.path_ = path;
    int number = 0;
    while (!file.atEnd()) {
        ++number;
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const qsizetype first = line.indexOf(QLatin1Char('"'));
        const qsizetype last = line.lastIndexOf(QLatin1Char('"'));
        const QString key = line.left(qMax(first, qsizetype(0))).trimmed();
        if (key.isEmpty() || last <= first || last != line.size() - 1 || block.rows_.contains(key))
            fail(platform::errors::kInvalidCall,
                 QStringLiteral("%1:%2: a row is a key of its own and a quoted text.").arg(path).arg(number));
        block.rows_.insert(key, line.mid(first + 1, last - first - 1));
    }
    return block;
}

const QString& TextBlock::operator[](const QString& key) const
{
    const auto row = rows_.constFind(key);
    if (row == rows_.constEnd())
        fail(platform::errors::kOutOfRange, QStringLiteral("The text %1 is not in '%2'.").arg(key, path_));
    return *row;
}

} // namespace session
