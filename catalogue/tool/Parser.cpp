#include "catalogue/tool/Parser.h"
#include "catalogue/tool/ParameterRow.h"
#include "catalogue/tool/Words.h"

#include <QDir>
#include <QRegularExpression>

namespace catalogue {

namespace {

class Parser
{
public:
    Catalogue parse(const std::vector<Line>& lines)
    {
        for (const Line& line : lines) {
            if (line.indented)
                readTexts(line);
            else
                readStatement(line);
        }
        expectNoTexts();
        return std::move(catalogue_);
    }

private:
    void readStatement(const Line& line)
    {
        expectNoTexts();
        choiceSet_ = false;
        const QStringList columns = columnsOf(line.text, line.origin);
        const QString& verb = columns[0];
        if (verb == "version")
            catalogue_.version = column(columns, 1, 2, line);
        else if (verb == "bank")
            readBank(columns, line);
        else if (verb == "eeprom")
            words_.eepromCommands[column(columns, 1, 3, line)] = wholeNumber(columns[2], line.origin);
        else if (verb == "kind")
            readKind(columns, line);
        else if (verb == "choices")
            readChoiceSet(columns, line);
        else if (verb == "block")
            readBlock(columns, line);
        else if (verb == "term")
            readTerm(line);
        else if (verb == "type")
            readType(columns, line);
        else if (verb == "group")
            readGroup(columns, line);
        else
            readParameter(columns, line);
    }

    // bank 1 sta 68 77 0 64 "Status"
    void readBank(const QStringList& columns, const Line& line)
    {
        Bank bank;
        bank.tag = column(columns, 7, 8, line);
        bank.id = wholeNumber(columns[1], line.origin);
        bank.name = columns[2];
        bank.readCmd = wholeNumber(columns[3], line.origin);
        bank.writeCmd = wholeNumber(columns[4], line.origin);
        bank.start = wholeNumber(columns[5], line.origin);
        bank.size = wholeNumber(columns[6], line.origin);
        bank.origin = line.origin;
        words_.banks[bank.name] = bank.id;
        catalogue_.banks.push_back(bank);
    }

    // kind t05 REAL BYTE 0..255 -50..77.5 0.0 °C
    void readKind(const QStringList& columns, const Line& line)
    {
        Kind kind;
        kind.unit = orEmpty(column(columns, 7, 8, line));
        kind.name = columns[1];
        kind.key = columns[2];
        kind.wire = columns[3];
        if (columns[4] != "-") {
            const auto [low, high] = range(columns[4], line.origin);
            const auto [lowValue, highValue] = range(columns[5], line.origin);
            kind.scale = Scale{low, high, lowValue, highValue};
        }
        kind.mask = orEmpty(columns[6]);
        kind.origin = line.origin;
        words_.kinds[kind.name] = kind;
    }

    void readChoiceSet(const QStringList& columns, const Line& line)
    {
        catalogue_.choiceSets.push_back({column(columns, 1, 2, line), {}, line.origin});
        choiceSet_ = true;
    }

    void readBlock(const QStringList& columns, const Line& line)
    {
        catalogue_.copyBlocks.push_back({column(columns, 1, 2, line), {}, line.origin});
        awaitTexts(catalogue_.copyBlocks.back().text, line);
    }

    void readTerm(const Line& line)
    {
        const Text columns = texts(line.text.mid(QStringLiteral("term").size()), line.origin);
        Term term;
        for (size_t language = 0; language < kLanguages.size(); ++language)
            for (const QString& stem : columns[language].split(','))
                term.stems[language] << stem.trimmed();
        term.origin = line.origin;
        catalogue_.glossary.push_back(term);
    }

    // type 2 ZR-210 base 12 alive 0 [master]
    void readType(const QStringList& columns, const Line& line)
    {
        if (columns.size() < 7 || columns.size() > 8 || columns[3] != "base" || columns[5] != "alive" ||
            (columns.size() == 8 && columns[7] != "master"))
            refuse(line.origin, QStringLiteral("a type is \"type number tag base xx alive n [master]\""));
        Type type;
        type.id = wholeNumber(columns[1], line.origin);
        type.tag = columns[2];
        type.base = columns[4];
        type.alive = wholeNumber(columns[6], line.origin);
        type.master = columns.size() == 8;
        type.origin = line.origin;
        catalogue_.types.push_back(type);
        awaitTexts(catalogue_.types.back().text, line);
    }

    void readGroup(const QStringList& columns, const Line& line)
    {
        if (catalogue_.types.empty())
            refuse(line.origin, QStringLiteral("a group without a type above it"));
        std::vector<Group>& groups = catalogue_.types.back().groups;
        groups.push_back({column(columns, 1, 2, line), {}, {}, line.origin});
        awaitTexts(groups.back().text, line);
    }

    void readParameter(const QStringList& columns, const Line& line)
    {
        if (catalogue_.types.empty() || catalogue_.types.back().groups.empty())
            refuse(line.origin, QStringLiteral("\"%1\" means nothing here").arg(columns[0]));
        std::vector<Parameter>& parameters = catalogue_.types.back().groups.back().parameters;
        parameters.push_back(parameterFromRow(columns, words_, line.origin));
        awaitTexts(parameters.back().text, line);
    }

    //   3 : Lucchetto | Padlock | Замок
    void readChoice(const Line& line)
    {
        static const QRegularExpression kChoice(QStringLiteral("^(-?\\d+)\\s*:(.*)$"));
        const QRegularExpressionMatch match = kChoice.match(line.text);
        if (!match.hasMatch())
            refuse(line.origin, QStringLiteral("a choice is \"number : Italian | English | Russian\""));
        const int value = wholeNumber(match.captured(1), line.origin);
        ChoiceSet& set = catalogue_.choiceSets.back();
        const auto [lowest, highest] = words_.choices.value(set.name, {value, value});
        words_.choices[set.name] = {std::min(lowest, value), std::max(highest, value)};
        set.choices.push_back({value, texts(match.captured(2), line.origin), line.origin});
    }

    void readTexts(const Line& line)
    {
        if (choiceSet_) {
            readChoice(line);
        } else if (awaited_ != nullptr) {
            *awaited_ = texts(line.text, line.origin);
            awaited_ = nullptr;
        } else {
            refuse(line.origin, QStringLiteral("texts that belong to nothing"));
        }
    }

    void awaitTexts(Text& text, const Line& line)
    {
        awaited_ = &text;
        awaitedFor_ = line.origin;
    }

    void expectNoTexts() const
    {
        if (awaited_ != nullptr)
            refuse(awaitedFor_, QStringLiteral("the texts are missing below this line"));
    }

    static QString column(const QStringList& columns, int index, int count, const Line& line)
    {
        if (columns.size() != count)
            refuse(line.origin, QStringLiteral("\"%1\" takes %2 columns").arg(columns[0]).arg(count - 1));
        return columns[index];
    }

    static QString orEmpty(const QString& text) { return text == "-" ? QString("") : text; }

    Catalogue catalogue_;
    Vocabulary words_;
    bool choiceSet_ = false;
    Text* awaited_ = nullptr;
    Origin awaitedFor_;
};

} // namespace

Catalogue parse(const std::vector<Line>& lines)
{
    return Parser().parse(lines);
}

Catalogue readCatalogue(const QString& folder)
{
    QStringList files;
    for (const QString& name : QDir(folder + "/common").entryList({"*.txt"}, QDir::Files, QDir::Name))
        files << "common/" + name;
    files << QStringLiteral("glossary.txt");
    for (const QString& name : QDir(folder + "/types").entryList({"*.txt"}, QDir::Files, QDir::Name))
        files << "types/" + name;
    std::vector<Line> lines;
    for (const QString& file : files) {
        const std::vector<Line> more = readSource(folder, file);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    return parse(lines);
}

} // namespace catalogue
