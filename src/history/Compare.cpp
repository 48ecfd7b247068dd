#include "history/Compare.h"

#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "structure/NodeKey.h"
#include "structure/ParameterWords.h"
#include "structure/PlantNames.h"
#include "values/Numbers.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>
#include <algorithm>
#include <map>

namespace history {

using session::Compose_SqlText;
using structure::bytesOf;
using structure::CompanyReader;
using structure::KeyParts;
using structure::textOf;
using Outcome = ComparedValue::Outcome;

namespace {

// -1, 0 or 1, as the company's keys stand: Latin letters without regard to case.
int compareIds(const std::string& one, const std::string& other)
{
    const auto lowered = [](char character) {
        return character >= 'A' && character <= 'Z' ? char(character - 'A' + 'a') : character;
    };
    const auto [a, b] = std::mismatch(one.begin(), one.end(), other.begin(), other.end(),
                                      [&](char x, char y) { return lowered(x) == lowered(y); });
    if (a == one.end() || b == other.end())
        return int(a != one.end()) - int(b != other.end());
    return static_cast<unsigned char>(lowered(*a)) < static_cast<unsigned char>(lowered(*b)) ? -1 : 1;
}

int compareKeys(const SideValue& one, const SideValue& other)
{
    if (one.IDInst != other.IDInst)
        return one.IDInst < other.IDInst ? -1 : 1;
    return compareIds(one.IDPar, other.IDPar);
}

void sortByKey(std::vector<SideValue>& values)
{
    const auto before = [](const SideValue& one, const SideValue& other) {
        return compareKeys(one, other) < 0;
    };
    if (!std::is_sorted(values.begin(), values.end(), before))
        std::stable_sort(values.begin(), values.end(), before);
}

QString conditionOf(const KeyParts& ids)
{
    QString condition = u"(tbParametersUser.IDGrp = " % ids.IDGrp % u')';
    if (!ids.IDInst.isEmpty())
        condition += u" AND (tbParametersUser.IDInst = " % ids.IDInst % u')';
    if (!ids.IDParGrp.isEmpty())
        condition += u" AND (tbParametersUser.IDParGrp = " % Compose_SqlText(ids.IDParGrp) % u')';
    return condition;
}

std::vector<SideValue> readValues(CompanyReader& company, const QString& statement)
{
    std::vector<SideValue> values;
    company.eachRow(statement, [&](const platform::Statement& row) {
        SideValue value;
        value.IDInst = int(row.integer(0));
        value.IDParGrp = bytesOf(row, 1);
        value.IDPar = bytesOf(row, 2);
        if (row.kind(3) != platform::Statement::Kind::Null)
            value.value = bytesOf(row, 3);
        values.push_back(std::move(value));
    });
    sortByKey(values);
    return values;
}

std::vector<SideValue> storedValues(CompanyReader& company, const KeyParts& ids)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT IDInst, IDParGrp, IDPar, Value
           FROM tbParametersUser
           WHERE (%1)
           ORDER BY IDGrp, IDInst, IDPar;)");
    return readValues(company, kStatement.arg(conditionOf(ids)));
}

// Of what the element holds, as far as the catalogue has one. A reading has none.
std::vector<SideValue> defaultValues(CompanyReader& company, const KeyParts& ids)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParametersUser.IDInst, tbParametersUser.IDParGrp, tbParametersUser.IDPar,
                  tbParam.mDftValue
           FROM tbParametersUser
                INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID
           WHERE (%1) AND (tbParam.mDftValue IS NOT NULL)
           ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDPar;)");
    return readValues(company, kStatement.arg(conditionOf(ids)));
}

// An empty field of a trace is no value at all, and blanks at an end are not in it.
std::optional<std::string> asInATrace(const std::optional<std::string>& value)
{
    std::string text = value.value_or(std::string());
    text.erase(text.find_last_not_of(' ') + 1);
    return text.empty() ? std::nullopt : std::optional(text);
}

std::vector<SideValue> traceValues(const CompareRequest& request, const KeyParts& ids)
{
    std::vector<SideValue> values = request.readTrace(request.with.file);
    std::erase_if(values, [&](const SideValue& value) {
        const SideValue wanted{0, {}, ids.IDParGrp.toStdString(), {}};
        return (!ids.IDInst.isEmpty() && value.IDInst != ids.IDInst.toInt()) ||
               (!ids.IDParGrp.isEmpty() && compareIds(value.IDParGrp, wanted.IDPar) != 0);
    });
    for (SideValue& value : values)
        value.value = asInATrace(value.value);
    sortByKey(values);
    return values;
}

QString nameOf(CompanyReader& company, const KeyParts& ids)
{
    QString name;
    const QString statement =
        ids.IDInst.isEmpty()
            ? u"SELECT Name FROM tbGroupsUser WHERE (IDGrp = " % ids.IDGrp % u");"
            : QString(u"SELECT tbGroupsUser.Name || '\\' || tbInstrumentsUser.Name FROM tbInstrumentsUser "
                      u"INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp WHERE "
                      u"((tbInstrumentsUser.IDGrp = " %
                      ids.IDGrp % u") AND (IDInst = " % ids.IDInst % u"));");
    company.eachRow(statement, [&](const platform::Statement& row) { name = textOf(row, 0); });
    return name;
}

bool isSame(const std::optional<std::string>& left, const std::optional<std::string>& right)
{
    if (left == right || !left || !right)
        return left == right;
    const QString one = QString::fromStdString(*left), other = QString::fromStdString(*right);
    return values::isNumeric(one) && values::isNumeric(other) &&
           values::toNumber(one) == values::toNumber(other);
}

// Puts what both sides hold beside each other, by instrument and parameter group.
class Comparing
{
public:
    Comparing(CompanyReader& company, const CompareRequest& request)
        : ids_(structure::Extract_Key(request.key)), words_(company, request.language), names_(company)
    {
    }

    void add(const SideValue* left, const SideValue* right)
    {
        const SideValue& either = left ? *left : *right;
        const structure::ParameterWord* word = words_.parameter(either.IDPar);
        ComparedValue row;
        row.key = structure::parameterKey(ids_.IDGrp, QString::number(either.IDInst),
                                          QString::fromStdString(either.IDParGrp),
                                          QString::fromStdString(either.IDPar));
        row.parameter = word ? word->name : QString::fromStdString(either.IDPar);
        row.left = left ? shown(word, left->value) : QString();
        row.right = right ? shown(word, right->value) : QString();
        row.outcome = !right                              ? Outcome::OnlyLeft
                      : !left                             ? Outcome::OnlyRight
                      : isSame(left->value, right->value) ? Outcome::Same
                                                          : Outcome::Different;
        // What differs behind the decimals that are shown is told as it is stored.
        if (row.outcome == Outcome::Different && row.left == row.right) {
            row.left = QString::fromStdString(left->value.value_or("--"));
            row.right = QString::fromStdString(right->value.value_or("--"));
        }
        count(row.outcome);
        groupOf(either).values.push_back(std::move(row));
    }

    Comparison& result() { return result_; }

private:
    static QString shown(const structure::ParameterWord* word, const std::optional<std::string>& value)
    {
        const auto text = value ? std::optional(QString::fromStdString(*value)) : std::nullopt;
        const QString stored = text.value_or(QStringLiteral("--"));
        const QString shown = word ? word->shown(text) : stored;
        return shown.isEmpty() ? stored : shown; // a number that no choice has
    }

    void count(Outcome outcome)
    {
        ++result_.compared;
        result_.different += outcome == Outcome::Different;
        result_.onlyLeft += outcome == Outcome::OnlyLeft;
        result_.onlyRight += outcome == Outcome::OnlyRight;
    }

    ComparedGroup& groupOf(const SideValue& value)
    {
        const auto [place, fresh] =
            places_.try_emplace({value.IDInst, value.IDParGrp}, result_.groups.size());
        if (fresh) {
            const QString IDInst = QString::number(value.IDInst);
            const QString& instrument = names_.above(ids_.IDGrp, IDInst).instrument;
            const QString* group = words_.group(value.IDParGrp);
            result_.groups.push_back({(instrument.isEmpty() ? u'#' + IDInst : instrument) % u'\\' %
                                          (group ? *group : QString::fromStdString(value.IDParGrp)),
                                      {}});
        }
        return result_.groups[place->second];
    }

    KeyParts ids_;
    structure::ParameterWords words_;
    structure::PlantNames names_;
    Comparison result_;
    std::map<std::pair<int, std::string>, std::size_t> places_;
};

std::vector<SideValue> rightSide(CompanyReader& company, const CompareRequest& request, QString& name)
{
    const KeyParts ids = structure::Extract_Key(request.key);
    const CompareWith& with = request.with;
    const QString file = QFileInfo(with.file).fileName();
    switch (with.kind) {
    case CompareWith::Kind::Defaults:
        return defaultValues(company, ids);
    case CompareWith::Kind::Element: {
        KeyParts other = structure::Extract_Key(with.key);
        other.IDParGrp = ids.IDParGrp;
        name = nameOf(company, other);
        std::vector<SideValue> values = storedValues(company, other);
        if (!ids.IDInst.isEmpty()) {
            for (SideValue& value : values)
                value.IDInst = ids.IDInst.toInt();
        }
        return values;
    }
    case CompareWith::Kind::Company: {
        CompanyReader other(with.file);
        name = file % u": " % nameOf(other, ids);
        return storedValues(other, ids);
    }
    default:
        name = file;
        return traceValues(request, ids);
    }
}

Comparison compared(const CompareRequest& request, const structure::StopFlag& stop)
{
    CompanyReader company(request.company);
    const KeyParts ids = structure::Extract_Key(request.key);
    Comparing comparing(company, request);
    comparing.result().left = nameOf(company, ids);
    const std::vector<SideValue> right = rightSide(company, request, comparing.result().right);
    std::vector<SideValue> left = storedValues(company, ids);
    if (request.with.kind == CompareWith::Kind::Trace) {
        for (SideValue& value : left)
            value.value = asInATrace(value.value);
    }
    const bool defaults = request.with.kind == CompareWith::Kind::Defaults;
    auto one = left.begin();
    auto other = right.begin();
    while ((one != left.end() || other != right.end()) && !stop) {
        const int order = one == left.end() ? 1 : other == right.end() ? -1 : compareKeys(*one, *other);
        if (order >= 0 || !defaults) // what has no default isn't compared with one
            comparing.add(order <= 0 ? &*one : nullptr, order >= 0 ? &*other : nullptr);
        one += order <= 0;
        other += order >= 0;
    }
    return std::move(comparing.result());
}

} // namespace

Comparison compare(const CompareRequest& request, const structure::StopFlag& stop)
{
    try {
        return compared(request, stop);
    } catch (const platform::RuntimeError& error) {
        Comparison failed;
        failed.failure = error.description;
        return failed;
    }
}

std::vector<Comparable> comparableWith(const QString& company, const QString& key)
{
    static const QString kInstruments = QStringLiteral(
        R"(SELECT tbInstrumentsUser.IDGrp, IDInst, tbGroupsUser.Name || '\' || tbInstrumentsUser.Name
           FROM tbInstrumentsUser
                INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp
           WHERE (IDItem = (SELECT IDItem FROM tbInstrumentsUser WHERE ((IDGrp = %1) AND (IDInst = %2))))
             AND NOT ((tbInstrumentsUser.IDGrp = %1) AND (IDInst = %2))
           ORDER BY tbGroupsUser.Name, tbInstrumentsUser.Name;)");
    static const QString kGroups =
        QStringLiteral("SELECT IDGrp, NULL, Name FROM tbGroupsUser WHERE (IDGrp <> %1) ORDER BY Name;");
    const KeyParts ids = structure::Extract_Key(key);
    const QString statement =
        ids.IDInst.isEmpty() ? kGroups.arg(ids.IDGrp) : kInstruments.arg(ids.IDGrp, ids.IDInst);
    std::vector<Comparable> elements;
    CompanyReader(company).eachRow(statement, [&](const platform::Statement& row) {
        const QString IDGrp = textOf(row, 0), IDInst = textOf(row, 1);
        elements.push_back(
            {IDInst.isEmpty() ? structure::groupKey(IDGrp) : structure::instrumentKey(IDGrp, IDInst),
             textOf(row, 2)});
    });
    return elements;
}

} // namespace history
