#include "structure/PlantSearch.h"

#include "platform/RuntimeError.h"
#include "structure/Needle.h"
#include "structure/NodeKey.h"
#include "structure/ParameterWords.h"

#include <QStringBuilder>
#include <sqlite3.h>

namespace structure {

namespace {

std::string_view bytesOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, std::size_t(sqlite3_value_bytes(value))) : std::string_view();
}

// holds(text): whether the text holds the needle.
void holds(sqlite3_context* call, int, sqlite3_value** arguments)
{
    const auto* needle = static_cast<const Needle*>(sqlite3_user_data(call));
    sqlite3_result_int(call, needle->isIn(bytesOf(arguments[0])));
}

// Which parameters of a plant hold the needle. A plant repeats few values in many places: each is judged
// once.
class ParameterJudge
{
public:
    ParameterJudge(const ParameterWords& words, const Needle& needle)
        : words_(words), needle_(needle), known_(std::size_t(words.parameterCount()))
    {
    }

    // found(IDPar, IDParGrp, Value) of the statement.
    static void found(sqlite3_context* call, int, sqlite3_value** arguments)
    {
        auto* judge = static_cast<ParameterJudge*>(sqlite3_user_data(call));
        sqlite3_result_int(call, judge->isFound(arguments[0], arguments[1], arguments[2]));
    }

private:
    struct Known
    {
        std::optional<bool> named;
        std::optional<bool> unknownValue;
        std::unordered_map<std::string, bool, IdHash, std::equal_to<>> values;
    };

    bool isFound(sqlite3_value* id, sqlite3_value* group, sqlite3_value* value)
    {
        const ParameterWord* word = words_.parameter(bytesOf(id));
        if (!word || !words_.group(bytesOf(group)))
            return false;
        Known& known = known_[std::size_t(word->index)];
        if (!known.named)
            known.named = needle_.isIn(word->name) || needle_.isIn(word->tag);
        return *known.named || isValueFound(*word, known, value);
    }

    bool isValueFound(const ParameterWord& word, Known& known, sqlite3_value* value)
    {
        if (sqlite3_value_type(value) == SQLITE_NULL) {
            if (!known.unknownValue)
                known.unknownValue = needle_.isIn(word.shown({}));
            return *known.unknownValue;
        }
        const std::string_view stored = bytesOf(value);
        const auto judged = known.values.find(stored);
        if (judged != known.values.end())
            return judged->second;
        const bool is = needle_.isIn(stored) ||
                        needle_.isIn(word.shown(QString::fromUtf8(stored.data(), qsizetype(stored.size()))));
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
        : company_(file), words_(company_, language), needle_(needle), judge_(words_, needle), stop_(stop)
    {
        company_.database().createFunction("holds", 1, true, const_cast<Needle*>(&needle_), &holds);
        company_.database().createFunction("found", 3, true, &judge_, &ParameterJudge::found);
    }

    void run(Findings& findings)
    {
        groups(findings);
        if (!stop_)
            instruments(findings);
        if (!stop_)
            parameters(findings);
    }

private:
    // Of some fields the first that holds the needle, or the one that is shown anyway.
    QString telling(const QString& name, const QString& usual, std::initializer_list<QString> others) const
    {
        if (needle_.isIn(name) || needle_.isIn(usual))
            return usual;
        for (const QString& other : others) {
            if (needle_.isIn(other))
                return other;
        }
        return usual;
    }

    void groups(Findings& findings)
    {
        int listed = 0;
        company_.eachRow(
            QStringLiteral("SELECT IDGrp, Name, Description, Phone FROM tbGroupsUser WHERE (holds(Name) OR "
                           "holds(Description) OR holds(Phone)) ORDER BY Name;"),
            [&](SQLite::Statement& row) {
                if (++listed > kMostOfAKind) {
                    ++findings.more;
                    return;
                }
                const QString name = textOf(row, 1);
                findings.items.push_back({u"1_" % textOf(row, 0), name,
                                          telling(name, textOf(row, 3), {textOf(row, 2)}), kRootCaption, 2});
            });
    }

    void instruments(Findings& findings)
    {
        int listed = 0;
        company_.eachRow(
            QStringLiteral(
                "SELECT tbInstrumentsUser.IDGrp, tbInstrumentsUser.IDInst, tbInstrumentsUser.Name, "
                "tbInstrumentsUser.Address, tbInstrumentsUser.Description, tbInstrumentsUser.IDItem, "
                "tbGroupsUser.Name FROM tbInstrumentsUser INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp "
                "= tbGroupsUser.IDGrp WHERE (holds(tbInstrumentsUser.Name) OR "
                "holds(tbInstrumentsUser.Address) OR holds(tbInstrumentsUser.Description) OR "
                "holds(tbInstrumentsUser.IDItem)) ORDER BY tbGroupsUser.Name, tbInstrumentsUser.Name;"),
            [&](SQLite::Statement& row) {
                if (++listed > kMostOfAKind) {
                    ++findings.more;
                    return;
                }
                const QString name = textOf(row, 2);
                findings.items.push_back({u"2_" % textOf(row, 0) % u'_' % textOf(row, 1), name,
                                          telling(name, textOf(row, 3), {textOf(row, 4), textOf(row, 5)}),
                                          textOf(row, 6), 3});
            });
    }

    void parameters(Findings& findings)
    {
        int listed = 0;
        company_.eachRowOfPlant(
            QStringLiteral(
                "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
                "tbParametersUser.IDPar, tbParametersUser.Value, tbParametersUser.State "
                "FROM tbParametersUser WHERE ((tbParametersUser.IDGrp BETWEEN ? AND ?) AND "
                "found(tbParametersUser.IDPar, tbParametersUser.IDParGrp, tbParametersUser.Value)) "
                "ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDPar;"),
            stop_, [&](SQLite::Statement& row) {
                if (++listed > kMostOfAKind)
                    ++findings.more;
                else
                    findings.items.push_back(parameterItem(row));
            });
        for (ListItem& item : findings.items) {
            if (Extract_Level(item.key) == kParameter)
                item.detail = pathOf(item.key) % u'\\' % item.detail;
        }
    }

    ListItem parameterItem(SQLite::Statement& row) const
    {
        const ParameterWord& word = *words_.parameter(structure::bytesOf(row, 3));
        const std::optional<QString> value =
            row.isColumnNull(4) ? std::nullopt : std::optional(textOf(row, 4));
        return {u"4_" % textOf(row, 0) % u'_' % textOf(row, 1) % u'_' % textOf(row, 2) % u'_' %
                    textOf(row, 3),
                word.name, word.shown(value), *words_.group(structure::bytesOf(row, 2)),
                row.getColumn(5).getInt() + 5};
    }

    // The names of group and instrument above a parameter.
    QString pathOf(const QString& key)
    {
        const KeyParts ids = Extract_Key(key);
        QString path;
        company_.eachRow(
            u"SELECT tbGroupsUser.Name, tbInstrumentsUser.Name FROM tbInstrumentsUser INNER JOIN "
            u"tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp WHERE "
            u"((tbInstrumentsUser.IDGrp = " %
                ids.IDGrp % u") AND (tbInstrumentsUser.IDInst = " % ids.IDInst % u"));",
            [&path](SQLite::Statement& row) { path = textOf(row, 0) % u'\\' % textOf(row, 1); });
        return path;
    }

    CompanyReader company_;
    ParameterWords words_;
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
