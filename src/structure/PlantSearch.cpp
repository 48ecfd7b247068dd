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

// The words of a search as bits. What is found holds all of them: one at least in what is its own, the others
// there or in the names above it.
class Words
{
public:
    explicit Words(const QStringList& words)
    {
        for (const QString& word : words) {
            if (needles_.size() < kMostWords)
                needles_.emplace_back(word);
        }
    }

    template <class Text>
    unsigned in(const Text& text) const
    {
        unsigned found = 0;
        for (std::size_t i = 0; i < needles_.size(); ++i) {
            if (needles_[i].isIn(text))
                found |= 1U << i;
        }
        return found;
    }
    bool areFound(unsigned own, unsigned above) const
    {
        return own != 0 && (own | above) == (1U << needles_.size()) - 1;
    }

private:
    static constexpr std::size_t kMostWords = 16;
    std::vector<Needle> needles_;
};

// Which words the parameters of a plant hold. A plant repeats few values in many places: each is judged once.
class ParameterJudge
{
public:
    ParameterJudge(const ParameterWords& words, const Words& searched)
        : words_(words), searched_(searched), known_(std::size_t(words.parameterCount()))
    {
    }

    // A row of IDGrp, IDInst, IDPar, IDParGrp, Value; `above` are the words that the names of its plant and
    // instrument hold.
    bool isFound(const platform::Statement& row, unsigned above)
    {
        const ParameterWord* word = words_.parameter(bytesOf(row, 2));
        const QString* group = words_.group(bytesOf(row, 3));
        if (!word || !group)
            return false;
        Known& known = known_[std::size_t(word->index)];
        if (!known.named)
            known.named = searched_.in(word->name) | searched_.in(word->tag);
        const unsigned own = *known.named | ofValue(*word, known, row);
        return own != 0 && searched_.areFound(own, above | ofGroup(*group));
    }

private:
    struct Known
    {
        std::optional<unsigned> named;
        std::optional<unsigned> unknownValue;
        std::unordered_map<std::string, unsigned, IdHash, std::equal_to<>> values;
    };

    unsigned ofValue(const ParameterWord& word, Known& known, const platform::Statement& row)
    {
        if (row.kind(4) == platform::Statement::Kind::Null) {
            if (!known.unknownValue)
                known.unknownValue = searched_.in(word.shown({}));
            return *known.unknownValue;
        }
        const std::string_view stored = bytesOf(row, 4);
        const auto judged = known.values.find(stored);
        if (judged != known.values.end())
            return judged->second;
        const unsigned found = searched_.in(stored) | searched_.in(word.shown(textOf(row, 4)));
        known.values.emplace(stored, found);
        return found;
    }

    unsigned ofGroup(const QString& group)
    {
        const auto judged = groups_.constFind(&group);
        return judged == groups_.constEnd() ? *groups_.insert(&group, searched_.in(group)) : *judged;
    }

    const ParameterWords& words_;
    const Words& searched_;
    std::vector<Known> known_;               // by ParameterWord::index
    QHash<const QString*, unsigned> groups_; // by the name in `words_`
};

class Search
{
public:
    Search(const QString& file, const QString& language, const Words& searched, const StopFlag& stop)
        : company_(file), words_(company_, language), names_(company_), searched_(searched),
          judge_(words_, searched), stop_(stop)
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

    // The words that some columns of a row hold.
    unsigned held(const platform::Statement& row, std::initializer_list<int> columns) const
    {
        unsigned found = 0;
        for (const int column : columns)
            found |= searched_.in(bytesOf(row, column));
        return found;
    }

    // Of some columns the first that holds a word, when neither the name nor the one that is shown anyway
    // does.
    QString telling(const platform::Statement& row, int name, int usual,
                    std::initializer_list<int> others) const
    {
        if (held(row, {name, usual}) == 0) {
            for (const int other : others) {
                if (held(row, {other}) != 0)
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
            const int IDGrp = int(row.integer(0));
            groupNames_.insert(IDGrp, textOf(row, 1));
            groupWords_.insert(IDGrp, searched_.in(bytesOf(row, 1)));
            if (searched_.areFound(held(row, {1, 2, 3}), 0))
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
            const int IDGrp = int(row.integer(0));
            const unsigned above = groupWords_.value(IDGrp);
            if (const unsigned named = above | searched_.in(bytesOf(row, 2)); named != 0)
                instrumentWords_.insert({IDGrp, int(row.integer(1))}, named);
            if (!searched_.areFound(held(row, {2, 3, 4, 5}), above))
                return;
            const QString group = groupNames_.value(IDGrp);
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
            if (!judge_.isFound(row, instrumentWords_.value({int(row.integer(0)), int(row.integer(1))})))
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
    QHash<int, unsigned> groupWords_;                      // that a plant's name holds
    QHash<std::pair<int, int>, unsigned> instrumentWords_; // that its name or its plant's holds
    const Words& searched_;
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
        const Words whole({text});
        Search(file, language, whole, stop).run(findings);
        const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
        if (findings.items.empty() && words.size() > 1) {
            const Words each(words);
            Search(file, language, each, stop).run(findings);
        }
    } catch (const platform::RuntimeError& error) {
        findings.failure = error.description;
    }
    return findings;
}

} // namespace structure
