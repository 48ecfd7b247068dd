#include "catalogue/tool/Coding.h"

#include <QTime>
#include <cmath>

namespace catalogue {

namespace {

bool isTime(const Parameter& parameter)
{
    return parameter.key.startsWith(QStringLiteral("TIME"));
}

bool highByteFirst(const Parameter& parameter)
{
    return parameter.wire == "WORD_H" || parameter.wire == "INT_H";
}

// Whole minutes, also under TIME_HMS.
QString timeText(const Parameter& parameter, int seconds)
{
    const int hours = seconds / 3600;
    const int minutes = parameter.key == "TIME_H" ? 0 : seconds / 60 % 60;
    return QStringLiteral("%1:%2:00")
        .arg(hours, 2, 10, QLatin1Char('0'))
        .arg(minutes, 2, 10, QLatin1Char('0'));
}

std::optional<double> numberIn(const Parameter& parameter, const QString& value)
{
    if (isTime(parameter)) {
        const QTime time = QTime::fromString(value, QStringLiteral("HH:mm:ss"));
        return time.isValid() ? std::optional<double>(QTime(0, 0).secsTo(time)) : std::nullopt;
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? std::optional<double>(number) : std::nullopt;
}

// A sign nibble above 9 means minus; then hundreds, tens, units.
int bcdCount(quint8 first, quint8 second)
{
    const int digits = (first & 15) * 100 + (second >> 4) * 10 + (second & 15);
    return first >> 4 > 9 ? -digits : digits;
}

int rawIn(const Parameter& parameter, const QByteArray& bytes)
{
    const auto first = static_cast<quint8>(bytes[0]);
    if (parameter.wire == "BIT")
        return first >> parameter.bitFirst & ((1 << parameter.bitCount) - 1);
    if (parameter.wire == "BYTE")
        return first;
    if (parameter.wire == "S_BYTE")
        return first > 127 ? first - 256 : first;
    const auto second = static_cast<quint8>(bytes[1]);
    if (parameter.wire == "BCD")
        return bcdCount(first, second);
    return highByteFirst(parameter) ? first * 256 + second : second * 256 + first;
}

// The low limit counts only above zero, and never for BCD; a bit field has no limits at all.
bool rejected(const Parameter& parameter, double value)
{
    if (parameter.wire == "BIT")
        return false;
    return value > parameter.high || (parameter.wire != "BCD" && parameter.low > 0 && value < parameter.low);
}

} // namespace

std::pair<int, int> rawRange(const Parameter& parameter)
{
    if (parameter.wire == "BYTE")
        return {0, 255};
    if (parameter.wire == "S_BYTE")
        return {-128, 127};
    if (parameter.wire == "BIT")
        return {0, (1 << parameter.bitCount) - 1};
    if (parameter.wire == "BCD")
        return {-999, 999};
    return {0, 65535};
}

double engineering(const Parameter& parameter, int raw)
{
    const Scale& scale = parameter.scale;
    const double slope = (scale.highValue - scale.lowValue) / (scale.high - scale.low);
    return QString::number(slope * (raw - scale.low) + scale.lowValue, 'g', 15).toDouble();
}

QString valueText(const Parameter& parameter, int raw)
{
    const double value = engineering(parameter, raw);
    if (isTime(parameter))
        return timeText(parameter, static_cast<int>(value));
    return QString::number(value == 0 ? 0.0 : value, 'g', 15);
}

std::optional<int> rawOf(const Parameter& parameter, const QString& value)
{
    const std::optional<double> number = numberIn(parameter, value);
    if (!number)
        return std::nullopt;
    const Scale& scale = parameter.scale;
    const double exact =
        (*number - scale.lowValue) * (scale.high - scale.low) / (scale.highValue - scale.lowValue) +
        scale.low;
    const auto [first, last] = rawRange(parameter);
    const double raw = std::nearbyint(exact);
    if (raw < first || raw > last || valueText(parameter, static_cast<int>(raw)).compare(value) != 0)
        return std::nullopt;
    return static_cast<int>(raw);
}

QByteArray bytesOf(const Parameter& parameter, int raw)
{
    if (parameter.wire == "BIT")
        return QByteArray(1, static_cast<char>(raw << parameter.bitFirst));
    if (parameter.size == 1)
        return QByteArray(1, static_cast<char>(raw));
    if (parameter.wire == "BCD") {
        const int digits = std::abs(raw);
        const int sign = raw < 0 ? 0xF0 : 0;
        return QByteArray{}
            .append(static_cast<char>(sign | digits / 100))
            .append(static_cast<char>(digits / 10 % 10 << 4 | digits % 10));
    }
    const char high = static_cast<char>(raw / 256);
    const char low = static_cast<char>(raw % 256);
    return highByteFirst(parameter) ? QByteArray{}.append(high).append(low)
                                    : QByteArray{}.append(low).append(high);
}

std::optional<QString> decoded(const Parameter& parameter, const QByteArray& bytes)
{
    if (parameter.wire == "STRING") {
        QString text = QString::fromLatin1(bytes);
        while (text.endsWith(' '))
            text.chop(1);
        return text.isEmpty() ? std::nullopt : std::optional(text);
    }
    const int raw = rawIn(parameter, bytes);
    if (rejected(parameter, engineering(parameter, raw)))
        return std::nullopt;
    return valueText(parameter, raw);
}

bool hasEncoder(const Parameter& parameter)
{
    if (parameter.wire == "BYTE")
        return parameter.key != "TIME_H" && parameter.key != "TIME_HMS";
    return parameter.wire == "WORD_L" || parameter.wire == "WORD_H" || parameter.wire == "BIT" ||
           parameter.wire == "STRING";
}

} // namespace catalogue
