#include "structure/PlantSearch.h"

#include "platform/RuntimeError.h"
#include "structure/Image.h"
#include "structure/NameOrder.h"
#include "structure/Needle.h"
#include "structure/NodeKey.h"
#include "structure/ParameterWords.h"
#include "structure/PlantNames.h"

#include <QHash>
#include <QStringBuilder>
#include <algorithm>

namespace structure {

namespace {

// Which parameters of a plant hold the needle. A plant repeats few values in many places: each is judged
// once.
class ParameterJudge
{
public:
    ParameterJudge(const ParameterWords& words, const Needle& needle)
        : words_(words), needle_(needle), known_(std::size_t(words.parameterCount()))
    {
    }

    // A row of IDGrp, IDInst, IDPar, IDParGrp, Value.
    bool isFound(const platform::Statement& row)
    {
        const ParameterWord* word = words_.parameter(bytesOf(row, 2));
        if (!word || !words_.group(bytesOf(row, 3)))
            return false;
        Known& known = known_[std::size_t(word->index)];
        if (!known.named)
            known.named = needle_.isIn(word->name) || needle_.isIn(word->tag);
        return *known.named || isValueFound(*word, known, row);
    }

private:
    struct Known
    {
        std::optional<bool> named;
        std::optional<bool> unknownValue;
        std::unordered_map<std::string, bool, IdHash, std::equal_to<>> values;
    };

    bool isValueFound(const ParameterWord& word, Known& known, const platform::Statement& row)
    {
        if (row.kind(4) == platform::Statement::Kind::Null) {
            if (!known.unknownValue)
                known.unknownValue = needle_.isIn(word.shown({}));
            return *known.unknownValue;
        }
        const std::string_view stored = bytesOf(row, 4);
        const auto judged = known.values.find(stored);
        if (judged != known.values.end())
            return judged->second;
        const bool is = needle_.isIn(stored) || needle_.isIn(word.shown(textOf(row, 4)));
        known.values.emplace(stored, is);
        return is;
    }

    const ParameterWords& words_;
    const Needle& needle_;
    std::vector<Known> known_; // by ParameterWord::index
};

class Search
{
public:
    Search(const QString& file, const QString& language, const Needle& needle, const StopFlag& stop)
        : company_(file), words_(company_, language), names_(company_), needle_(needle),
          judge_(words_, needle), stop_(stop)
    {
    }

    void run(Findings& findings)
    {
        groups(findings);
        instruments(findings);
        parameters(findings);
    }

private:
    // What was found of a kind, and what it is listed by.
    struct Found
    {
        ListItem item;
        QString group;
    };

    static void list(std::vector<Found>& found, Findings& findings)
    {
        std::stable_sort(found.begin(), found.end(), [](const Found& one, const Found& other) {
            if (const int groups = compareNames(one.group, other.group); groups != 0)
                return groups < 0;
            return compareNames(one.item.text, other.item.text) < 0;
        });
        const std::size_t listed = std::min(found.size(), std::size_t(kMostOfAKind));
        for (std::size_t i = 0; i < listed; ++i)
            findings.items.push_back(std::move(found[i].item));
        findings.more += int(found.size() - listed);
    }

    // Whether one of some columns of a row holds the needle.
    bool holds(const platform::Statement& row, std::initializer_list<int> columns) const
    {
        return std::any_of(columns.begin(), columns.end(),
                           [&](int column) { return needle_.isIn(bytesOf(row, column)); });
    }

    // Of some columns the first that holds the needle, when neither the name nor the one that is shown anyway
    // does.
    QString telling(const platform::Statement& row, int name, int usual,
                    std::initializer_list<int> others) const
    {
        if (!holds(row, {name, usual})) {
            for (const int other : others) {
                if (holds(row, {other}))
                    return textOf(row, other);
            }
        }
        return textOf(row, usual);
    }

    void groups(Findings& findings)
    {
        static const QString kStatement = QStringLiteral(
            R"(SELECT IDGrp, Name, Phone, Description
               FROM tbGroupsUser
               WHERE (IDGrp > ?)
               ORDER BY IDGrp
               LIMIT ?;)");
        std::vector<Found> found;
        company_.eachRowInSlices(kStatement, 1, stop_, [&](const platform::Statement& row) {
            groupNames_.insert(int(row.integer(0)), textOf(row, 1));
            if (holds(row, {1, 2, 3}))
                found.push_back({{groupKey(textOf(row, 0)), textOf(row, 1), telling(row, 1, 2, {3}),
                                  kRootCaption, int(Image::Group)},
                                 {}});
        });
        list(found, findings);
    }

    void instruments(Findings& findings)
    {
        static const QString kStatement = QStringLiteral(
            R"(SELECT IDGrp, IDInst, Name, Address, Description, IDItem
               FROM tbInstrumentsUser
               WHERE ((IDGrp, IDInst) > (?, ?))
               ORDER BY IDGrp, IDInst
               LIMIT ?;)");
        std::vector<Found> found;
        company_.eachRowInSlices(kStatement, 2, stop_, [&](const platform::Statement& row) {
            if (!holds(row, {2, 3, 4, 5}))
                return;
            const QString group = groupNames_.value(int(row.integer(0)));
            found.push_back({{instrumentKey(textOf(row, 0), textOf(row, 1)), textOf(row, 2),
                              telling(row, 2, 3, {4, 5}), group, int(Image::Instrument)},
                             group});
        });
        list(found, findings);
    }

    void parameters(Findings& findings)
    {
        static const QString kStatement = QStringLiteral(
            R"(SELECT IDGrp, IDInst, IDPar, IDParGrp, Value, State
               FROM tbParametersUser
               WHERE ((IDGrp, IDInst, IDPar) > (?, ?, ?))
               ORDER BY IDGrp, IDInst, IDPar
               LIMIT ?;)");
        std::vector<ListItem> found;
        company_.eachRowInSlices(kStatement, 3, stop_, [&](const platform::Statement& row) {
            if (!judge_.isFound(row))
                return;
            if (found.size() < std::size_t(kMostOfAKind))
                found.push_back(parameterItem(row));
            else
                ++findings.more;
        });
        for (ListItem& item : found) {
            const KeyParts ids = Extract_Key(item.key);
            const PlantNames::Names& names = names_.above(ids.IDGrp, ids.IDInst);
            item.detail = names.group % u'\\' % names.instrument % u'\\' % item.detail;
            findings.items.push_back(std::move(item));
        }
    }

    ListItem parameterItem(const platform::Statement& row) const
    {
        const ParameterWord& word = *words_.parameter(bytesOf(row, 2));
        return {parameterKey(textOf(row, 0), textOf(row, 1), textOf(row, 3), textOf(row, 2)), word.name,
                word.shown(textOrNull(row, 4)), *words_.group(bytesOf(row, 3)),
                imageOfState(int(row.integer(5)))};
    }

    CompanyReader company_;
    ParameterWords words_;
    PlantNames names_;
    QHash<int, QString> groupNames_;
    const Needle& needle_;
    ParameterJudge judge_;
    const StopFlag& stop_;
};

} // namespace

Findings findInPlant(const QString& file, const QString& language, const QString& text, const StopFlag& stop)
{
    Findings findings;
    if (text.isEmpty())
        return findings;
    try {
        Search(file, language, Needle(text), stop).run(findings);
    } catch (const platform::RuntimeError& error) {
        findings.failure = error.description;
    }
    return findings;
}

} // namespace structure
