#include "session/Helpers.h"

#include <QFileInfo>

namespace session {

namespace {

QString trimmed(QString text, bool left, bool right)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (left && begin < end && text[begin] == QLatin1Char(' '))
        ++begin;
    while (right && end > begin && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

} // namespace

QString Compose_SqlText(const QVariant& value, const QString& trim, const QString& letters)
{
    if (value.isNull())
        return QStringLiteral("NULL");
    const QString side = trim.toUpper();
    const bool both = side == QLatin1String("T");
    QString text =
        trimmed(value.toString(), both || side == QLatin1String("L"), both || side == QLatin1String("R"));
    if (letters.toUpper() == QLatin1String("L"))
        text = text.toLower();
    else if (letters.toUpper() == QLatin1String("U"))
        text = text.toUpper();
    text.replace(QLatin1Char('\''), QLatin1String("''"));
    // The engine takes the statement for ended at a NUL.
    text.replace(QChar(u'\0'), QLatin1String("'||char(0)||'"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString composeTextOrNull(const QString& value)
{
    return value.isEmpty() ? QStringLiteral("NULL") : Compose_SqlText(value);
}

QString Null_To_Value(const QVariant& value, const QString& otherwise)
{
    return value.isNull() ? otherwise : value.toString();
}

bool Exist_File(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.size() >= 0;
}

bool Exist_Path(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

double Wait_Seconds(platform::Clock& clock, double seconds)
{
    return platform::waitOnDayClock(clock, seconds);
}

} // namespace session
