#include "catalogue/tool/Page.h"
#include "catalogue/tool/TextOutput.h"
#include "catalogue/tool/Words.h"

namespace catalogue {

namespace {

constexpr size_t kItalian = 0;
constexpr size_t kEnglish = 1;
constexpr size_t kRussian = 2;

QString numberText(double number)
{
    return QString::number(number, 'g', 15);
}

bool isTime(const Parameter& parameter)
{
    return parameter.key.startsWith(QStringLiteral("TIME"));
}

// One below the other in a cell, English first.
QString inAllLanguages(const Text& text)
{
    QStringList lines{text[kEnglish], text[kItalian], text[kRussian]};
    lines.removeDuplicates();
    return lines.join(QStringLiteral("<br>"));
}

QString place(const Catalogue& catalogue, const Parameter& parameter)
{
    QString text = QStringLiteral("%1 %2").arg(catalogue.bank(parameter.bank)->name).arg(parameter.address);
    if (parameter.wire == "BIT")
        text += QStringLiteral(", bit %1").arg(parameter.bitFirst);
    if (parameter.bitCount > 1)
        text += QStringLiteral("-%1").arg(parameter.bitFirst + parameter.bitCount - 1);
    return text;
}

QString eeprom(const Catalogue& catalogue, const Parameter& parameter)
{
    if (parameter.writeCmd == 0)
        return QStringLiteral("-");
    return QStringLiteral("%1 %2")
        .arg(catalogue.eeprom(parameter.writeCmd)->name)
        .arg(parameter.writeAddress);
}

QString scale(const Parameter& parameter)
{
    if (parameter.wire == "STRING")
        return QStringLiteral("%1 characters").arg(parameter.size);
    if (parameter.wire == "BIT")
        return QStringLiteral("-");
    const Scale& line = parameter.scale;
    if (isTime(parameter))
        return QStringLiteral("steps of %1 min")
            .arg(numberText((line.highValue - line.lowValue) / (line.high - line.low) / 60));
    return QStringLiteral("%1..%2 = %3..%4")
        .arg(numberText(line.low), numberText(line.high), numberText(line.lowValue),
             numberText(line.highValue));
}

QString choices(const ChoiceSet& set)
{
    Text lists;
    for (size_t language = 0; language < kLanguages.size(); ++language) {
        QStringList choices;
        for (const Choice& choice : set.choices)
            choices << QStringLiteral("%1 %2").arg(choice.value).arg(choice.text[language]);
        lists[language] = choices.join(QStringLiteral(", "));
    }
    return inAllLanguages(lists);
}

QString limits(const Catalogue& catalogue, const Parameter& parameter)
{
    if (parameter.wire == "STRING")
        return QStringLiteral("-");
    if (parameter.key == "ENUM")
        return choices(*catalogue.choiceSet(parameter.choices));
    const auto shown = [&](double value) {
        return isTime(parameter) ? timeOfDay(static_cast<int>(value)) : numberText(value);
    };
    const QString unit = parameter.unit.isEmpty() ? QString() : ' ' + parameter.unit;
    return QStringLiteral("%1..%2%3").arg(shown(parameter.low), shown(parameter.high), unit);
}

// A new instrument knows no reading.
QString standard(const Parameter& parameter)
{
    if (!parameter.editable || !parameter.standard)
        return QStringLiteral("-");
    return isTime(parameter) ? parameter.standard->left(5) : *parameter.standard;
}

QString row(const Catalogue& catalogue, const Parameter& parameter)
{
    const QStringList cells{parameter.id,
                            parameter.tag,
                            inAllLanguages(parameter.text),
                            parameter.key,
                            parameter.wire,
                            place(catalogue, parameter),
                            QString::number(parameter.size),
                            eeprom(catalogue, parameter),
                            scale(parameter),
                            limits(catalogue, parameter),
                            standard(parameter),
                            parameter.editable ? QStringLiteral("yes") : QStringLiteral("no")};
    return "| " + cells.join(QStringLiteral(" | ")) + " |\n";
}

QString banks(const Catalogue& catalogue)
{
    QString text = "| Bank | Name | Read command | Write command | First address | Bytes |\n"
                   "|---|---|---|---|---|---|\n";
    for (const Bank& bank : catalogue.banks)
        text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                    .arg(bank.name, bank.tag)
                    .arg(bank.readCmd)
                    .arg(bank.writeCmd)
                    .arg(bank.start)
                    .arg(bank.size);
    return text;
}

qsizetype parameterCount(const Type& type)
{
    size_t count = 0;
    for (const Group& group : type.groups)
        count += group.parameters.size();
    return static_cast<qsizetype>(count);
}

QString summary(const Catalogue& catalogue)
{
    QString text = "| Type | What it is | Base address | Alive address | Groups | Parameters |\n"
                   "|---|---|---|---|---|---|\n";
    qsizetype total = 0;
    for (const Type& type : catalogue.types) {
        const qsizetype count = parameterCount(type);
        total += count;
        text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |\n")
                    .arg(type.tag, type.text[kEnglish], type.base)
                    .arg(type.alive)
                    .arg(type.groups.size())
                    .arg(count);
    }
    return text + QStringLiteral("\n%1 parameters in all.\n").arg(total);
}

QString section(const Catalogue& catalogue, const Type& type)
{
    QString text = QStringLiteral("\n## %1: %2\n\n%3 / %4\n")
                       .arg(type.tag, type.text[kEnglish], type.text[kItalian], type.text[kRussian]);
    for (const Group& group : type.groups) {
        text += QStringLiteral("\n### %1 %2\n\n%3 / %4\n\n")
                    .arg(group.id, group.text[kEnglish], group.text[kItalian], group.text[kRussian]);
        text +=
            "| Id | Tag | Description | Key | Wire | Place | Bytes | EEPROM | Scale | Limits or choices | "
            "Standard | Edit |\n"
            "|---|---|---|---|---|---|---|---|---|---|---|---|\n";
        for (const Parameter& parameter : group.parameters)
            text += row(catalogue, parameter);
    }
    return text;
}

} // namespace

void writePage(const Catalogue& catalogue, const QString& target)
{
    QString text =
        QStringLiteral(
            "# The instrument catalogue, version %1\n\n"
            "Generated from the sources in `catalogue/` by `calidora-catalogue page`; do not edit.\n\n")
            .arg(catalogue.version);
    text += summary(catalogue) + "\n## Memory banks\n\n" + banks(catalogue);
    for (const Type& type : catalogue.types)
        text += section(catalogue, type);
    writeText(target, text);
}

} // namespace catalogue
