#include "catalogue/tool/Parser.h"
#include "catalogue/tool/ParameterRow.h"
#include "catalogue/tool/Words.h"

#include <QDir>
#include <QRegularExpression>
#include <algorithm>

namespace catalogue {

namespace {

const QStringList kWordVerbs{"bank", "eeprom", "kind"};
const QStringList kVerbs =
    kWordVerbs + QStringList{"version", "choices", "block", "term", "avoid", "type", "group"};

class Parser
{
public:
    explicit Parser(Problems& problems) : problems_(problems) {}

    Catalogue parse(const std::vector<Line>& lines)
    {
        for (const Line& line : lines) {
            if (line.indented)
                readIndented(line);
            else
                begin(line);
        }
        expectNoTexts();
        return std::move(catalogue_);
    }

private:
    // What stands below a statement that cannot be read is passed over with it.
    void begin(const Line& line)
    {
        expectNoTexts();
        choiceSet_ = false;
        Problems found;
        passesOver_ = line.unreadable || !gather(found, [&] { readStatement(line); });
        // Without all banks and kinds a parameter's row fails for no fault of its own.
        const QString verb = line.text.section(' ', 0, 0);
        lacksWords_ = lacksWords_ || (!found.empty() && kWordVerbs.contains(verb));
        if (!lacksWords_ || kVerbs.contains(verb))
            problems_.insert(problems_.end(), found.begin(), found.end());
    }

    void readIndented(const Line& line)
    {
        if (line.unreadable)
            awaited_ = nullptr;
        else if (!passesOver_)
            gather(problems_, [&] { readTexts(line); });
    }

    void readStatement(const Line& line)
    {
        const QStringList columns = columnsOf(line.text, line.origin);
        const QString& verb = columns[0];
        if (verb == "version")
            catalogue_.version = column(columns, 1, 2, line);
        else if (verb == "bank")
            readBank(columns, line);
        else if (verb == "eeprom")
            readEeprom(columns, line);
        else if (verb == "kind")
            readKind(columns, line);
        else if (verb == "choices")
            readChoiceSet(columns, line);
        else if (verb == "block")
            readBlock(columns, line);
        else if (verb == "term")
            readTerm(line);
        else if (verb == "avoid")
            readAvoided(columns, line);
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

    // eeprom ee 69 set
    void readEeprom(const QStringList& columns, const Line& line)
    {
        const QString bank = column(columns, 3, 4, line);
        if (!words_.banks.contains(bank))
            refuse(line.origin, QStringLiteral("there is no bank \"%1\"").arg(bank));
        const Eeprom eeprom{columns[1], wholeNumber(columns[2], line.origin), words_.banks[bank],
                            line.origin};
        words_.eepromCommands[eeprom.name] = eeprom.writeCmd;
        catalogue_.eeproms.push_back(eeprom);
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

    // avoid EN "kind of" "type"
    void readAvoided(const QStringList& columns, const Line& line)
    {
        const QString instead = column(columns, 3, 4, line);
        const auto language = std::ranges::find(kLanguages, columns[1]);
        if (language == kLanguages.end())
            refuse(line.origin, QStringLiteral("there is no language \"%1\"").arg(columns[1]));
        catalogue_.avoided.push_back(
            {static_cast<size_t>(language - kLanguages.begin()), columns[2], instead, line.origin});
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
        Origin origin = line.origin;
        origin.parameter = columns[0];
        parameters.push_back(parameterFromRow(columns, words_, origin));
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
            Text& text = *awaited_;
            awaited_ = nullptr;
            text = texts(line.text, line.origin);
        } else {
            refuse(line.origin, QStringLiteral("texts that belong to nothing"));
        }
    }

    void awaitTexts(Text& text, const Line& line)
    {
        awaited_ = &text;
        awaitedFor_ = line.origin;
    }

    void expectNoTexts()
    {
        if (awaited_ != nullptr)
            problems_.push_back({awaitedFor_, QStringLiteral("the texts are missing below this line")});
        awaited_ = nullptr;
    }

    static QString column(const QStringList& columns, int index, int count, const Line& line)
    {
        if (columns.size() != count)
            refuse(line.origin, QStringLiteral("\"%1\" takes %2 columns").arg(columns[0]).arg(count - 1));
        return columns[index];
    }

    static QString orEmpty(const QString& text) { return text == "-" ? QString("") : text; }

    Problems& problems_;
    Catalogue catalogue_;
    Vocabulary words_;
    bool choiceSet_ = false;
    bool passesOver_ = false;
    bool lacksWords_ = false;
    Text* awaited_ = nullptr;
    Origin awaitedFor_;
};

} // namespace

Catalogue parse(const std::vector<Line>& lines, Problems& problems)
{
    return Parser(problems).parse(lines);
}

Catalogue readCatalogue(const QString& folder)
{
    const auto sourcesIn = [&](const QString& part) {
        QStringList files;
        for (const QString& name : QDir(folder + '/' + part).entryList({"*.txt"}, QDir::Files, QDir::Name))
            files << part + '/' + name;
        return files;
    };
    Problems problems;
    std::vector<Line> lines;
    for (const QString& file : sourcesIn("common") + QStringList{"glossary.txt"} + sourcesIn("types")) {
        const std::vector<Line> more = readSource(folder, file, problems);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    Catalogue catalogue = parse(lines, problems);
    if (!problems.empty())
        throw Refused(std::move(problems));
    return catalogue;
}

} // namespace catalogue
