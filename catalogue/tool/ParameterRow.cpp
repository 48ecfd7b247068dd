#include "catalogue/tool/ParameterRow.h"
#include "catalogue/tool/Words.h"

#include <QRegularExpression>
#include <cmath>

namespace catalogue {

namespace {

// And the copy class behind them.
const QStringList kColumns{"id", "tag", "kind", "place", "eeprom", "limits", "standard", "edit or read"};

QString asTaken(const QStringList& columns)
{
    QStringList taken;
    for (qsizetype at = 0; at < columns.size(); ++at)
        taken << kColumns.value(at, QStringLiteral("copy class")) + ' ' + columns[at];
    return taken.join(QStringLiteral(", "));
}

bool isTime(const Parameter& parameter)
{
    return parameter.key.startsWith(QStringLiteral("TIME"));
}

// "there are k01, k1w": the kinds that begin alike.
QString kindsLike(const QString& name, const Vocabulary& words)
{
    QStringList alike;
    for (const QString& kind : words.kinds.keys())
        if (kind.left(1) == name.left(1))
            alike << kind;
    return alike.isEmpty() ? QString() : QStringLiteral("; there are ") + alike.join(QStringLiteral(", "));
}

// "name(argument)", the brackets being optional.
std::pair<QString, QString> nameAndArgument(const QString& text)
{
    const qsizetype open = text.indexOf('(');
    if (open < 0 || !text.endsWith(')'))
        return {text, QString()};
    return {text.left(open), text.mid(open + 1, text.size() - open - 2)};
}

void takeKind(Parameter& parameter, const QString& column, const Vocabulary& words)
{
    const auto [name, argument] = nameAndArgument(column);
    if (!words.kinds.contains(name))
        refuse(parameter.origin,
               QStringLiteral("\"%1\" is no kind of parameter%2").arg(name, kindsLike(name, words)));
    const Kind& kind = words.kinds[name];
    parameter.key = kind.key;
    parameter.wire = kind.wire;
    parameter.mask = kind.mask;
    parameter.unit = kind.unit;
    parameter.scale = kind.scale.value_or(Scale{});
    if (kind.wire == "STRING")
        parameter.size = wholeNumber(argument, parameter.origin);
    else
        parameter.size = kind.wire == "BYTE" || kind.wire == "S_BYTE" || kind.wire == "BIT" ? 1 : 2;
    if (kind.key == "ENUM")
        parameter.choices = argument;
}

// "bank:address", for a bit field "bank:address.bit" or "bank:address.first-last".
void takePlace(Parameter& parameter, const QString& column, const Vocabulary& words)
{
    static const QRegularExpression kPlace(QStringLiteral("^(\\w+):(\\d+)(?:\\.(\\d+)(?:-(\\d+))?)?$"));
    const QRegularExpressionMatch match = kPlace.match(column);
    if (!match.hasMatch())
        refuse(parameter.origin, QStringLiteral("\"%1\" is no place such as set:20 or set:20.3").arg(column));
    if (!words.banks.contains(match.captured(1)))
        refuse(parameter.origin, QStringLiteral("there is no bank \"%1\"").arg(match.captured(1)));
    const bool isField = parameter.wire == "BIT";
    if (isField != match.hasCaptured(3))
        refuse(parameter.origin, isField ? QStringLiteral("a bit field needs its bits, such as set:20.3")
                                         : QStringLiteral("only a bit field has bits"));
    parameter.bank = words.banks[match.captured(1)];
    parameter.address = match.captured(2).toInt();
    if (!isField)
        return;
    parameter.bitFirst = match.captured(3).toInt();
    const int last = match.hasCaptured(4) ? match.captured(4).toInt() : parameter.bitFirst;
    if (last > 7 || last < parameter.bitFirst)
        refuse(parameter.origin, QStringLiteral("a bit field lies inside its byte, lowest bit first"));
    parameter.bitCount = last - parameter.bitFirst + 1;
    const double highest = (1 << parameter.bitCount) - 1;
    parameter.scale = {0, highest, 0, highest};
}

void takeEeprom(Parameter& parameter, const QString& column, const Vocabulary& words)
{
    if (column == "-")
        return;
    const QStringList parts = column.split(':');
    if (parts.size() != 2 || !words.eepromCommands.contains(parts[0]))
        refuse(parameter.origin, QStringLiteral("\"%1\" is no place in an EEPROM").arg(column));
    parameter.writeCmd = words.eepromCommands[parts[0]];
    parameter.writeAddress = wholeNumber(parts[1], parameter.origin);
}

void takeLimits(Parameter& parameter, const QString& column, const Vocabulary& words)
{
    if (column == "-" && words.choices.contains(parameter.choices)) {
        std::tie(parameter.low, parameter.high) = words.choices[parameter.choices];
    } else if (column == "-") {
        parameter.low = std::min(parameter.scale.lowValue, parameter.scale.highValue);
        parameter.high = std::max(parameter.scale.lowValue, parameter.scale.highValue);
    } else {
        std::tie(parameter.low, parameter.high) =
            isTime(parameter) ? timeRange(column, parameter.origin) : range(column, parameter.origin);
    }
}

// "2.8", or "2.8~0.5" for what strays so far to either side.
void takeStandard(Parameter& parameter, const QString& column)
{
    if (column == "-")
        return;
    if (parameter.wire == "STRING") {
        parameter.standard = column;
        return;
    }
    const QString value = column.section('~', 0, 0);
    parameter.standard = isTime(parameter) ? storedTime(value, parameter.origin) : value;
    if (!column.contains('~'))
        return;
    parameter.spread = number(column.section('~', 1), parameter.origin);
    if (parameter.key != "REAL" || parameter.editable)
        refuse(parameter.origin,
               QStringLiteral("only a number that can only be read strays, not \"%1\"").arg(column));
}

void takeMode(Parameter& parameter, const QString& column)
{
    if (column != "edit" && column != "read")
        refuse(parameter.origin, QStringLiteral("\"%1\" is neither edit nor read").arg(column));
    parameter.editable = column == "edit";
}

} // namespace

Parameter parameterFromRow(const QStringList& columns, const Vocabulary& words, const Origin& origin)
{
    if (columns.size() < kColumns.size() || columns.size() > kColumns.size() + 1)
        refuse(origin,
               QStringLiteral("a parameter's row has 8 columns, or 9 with a copy class; this one has %1: %2")
                   .arg(QString::number(columns.size()), asTaken(columns)));
    Parameter parameter;
    parameter.origin = origin;
    parameter.id = columns[0];
    parameter.tag = columns[1];
    takeKind(parameter, columns[2], words);
    takePlace(parameter, columns[3], words);
    takeEeprom(parameter, columns[4], words);
    takeLimits(parameter, columns[5], words);
    takeMode(parameter, columns[7]);
    takeStandard(parameter, columns[6]);
    if (columns.size() > kColumns.size())
        parameter.copy = columns.back();
    return parameter;
}

} // namespace catalogue
