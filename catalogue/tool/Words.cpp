#include "catalogue/tool/Words.h"

#include <QRegularExpression>
#include <QTime>

namespace catalogue {

namespace {

std::pair<QString, QString> endsOf(const QString& range, const QString& example, const Origin& origin)
{
    const QStringList ends = range.split(QStringLiteral(".."));
    if (ends.size() != 2)
        refuse(origin, QStringLiteral("\"%1\" is not a range such as %2").arg(range, example));
    return {ends[0], ends[1]};
}

} // namespace

QStringList columnsOf(const QString& row, const Origin& origin)
{
    QStringList columns;
    QString column;
    bool inside = false;
    bool quoted = false;
    for (const QChar sign : row + ' ') {
        if (sign == '"') {
            quoted = !quoted;
            inside = true;
        } else if (sign.isSpace() && !quoted) {
            if (inside)
                columns << column;
            column.clear();
            inside = false;
        } else {
            column += sign;
            inside = true;
        }
    }
    if (quoted)
        refuse(origin, QStringLiteral("a \" that nothing closes"));
    return columns;
}

int wholeNumber(const QString& text, const Origin& origin)
{
    bool isNumber = false;
    const int result = text.toInt(&isNumber);
    if (!isNumber)
        refuse(origin, QStringLiteral("\"%1\" is not a whole number").arg(text));
    return result;
}

double number(const QString& text, const Origin& origin)
{
    bool isNumber = false;
    const double result = text.toDouble(&isNumber);
    if (!isNumber)
        refuse(origin, QStringLiteral("\"%1\" is not a number").arg(text));
    return result;
}

std::pair<double, double> range(const QString& text, const Origin& origin)
{
    const auto [low, high] = endsOf(text, QStringLiteral("0..255"), origin);
    return {number(low, origin), number(high, origin)};
}

int secondsOfDay(const QString& text, const Origin& origin)
{
    const QTime time = QTime::fromString(text, QStringLiteral("HH:mm"));
    if (!time.isValid())
        refuse(origin, QStringLiteral("\"%1\" is no time such as 07:30").arg(text));
    return QTime(0, 0).secsTo(time);
}

std::pair<double, double> timeRange(const QString& text, const Origin& origin)
{
    const auto [low, high] = endsOf(text, QStringLiteral("00:00..23:50"), origin);
    return {secondsOfDay(low, origin), secondsOfDay(high, origin)};
}

QStringList wordsOfTwoAlphabets(const QString& text)
{
    static const QRegularExpression kWord(QStringLiteral("[\\p{L}\\p{N}]+"));
    static const QRegularExpression kLatin(QStringLiteral("\\p{Latin}"));
    static const QRegularExpression kCyrillic(QStringLiteral("\\p{Cyrillic}"));
    static const QRegularExpression kLonely(QStringLiteral("^[aceopxykAO]$")); // for а, с, о, у, к ...
    QStringList found;
    if (!text.contains(kCyrillic))
        return found;
    for (auto words = kWord.globalMatch(text); words.hasNext();) {
        const QString word = words.next().captured();
        if ((word.contains(kLatin) && word.contains(kCyrillic)) || word.contains(kLonely))
            found << word;
    }
    return found;
}

QString storedTime(const QString& text, const Origin& origin)
{
    return timeOfDay(secondsOfDay(text, origin)) + QStringLiteral(":00");
}

QString timeOfDay(int seconds)
{
    return QTime(0, 0).addSecs(seconds).toString(QStringLiteral("HH:mm"));
}

Text texts(const QString& text, const Origin& origin)
{
    const QStringList parts = text.split('|');
    if (parts.size() != static_cast<qsizetype>(kLanguages.size()))
        refuse(origin, QStringLiteral("three texts are wanted here: Italian | English | Russian"));
    return {parts[0].trimmed(), parts[1].trimmed(), parts[2].trimmed()};
}

} // namespace catalogue
