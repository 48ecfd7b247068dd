#include "catalogue/tool/Checks.h"

#include <QHash>
#include <QRegularExpression>

namespace catalogue {

namespace {

const QString kNeverOffered{"ALIEN"};

// Names that must differ, capitals or not, as the database compares them.
class Unique
{
public:
    Unique(QString what, Problems& problems) : what_(std::move(what)), problems_(problems) {}

    void add(const QString& name, const Origin& origin)
    {
        const QString key = name.toUpper();
        if (const auto first = seen_.constFind(key); first != seen_.constEnd())
            problems_.push_back({origin, QStringLiteral("%1 \"%2\" stands already in %3:%4")
                                             .arg(what_, name, first->file, QString::number(first->line))});
        else
            seen_.insert(key, origin);
    }

private:
    QString what_;
    Problems& problems_;
    QHash<QString, Origin> seen_;
};

void checkId(const QString& id, const Origin& origin, Problems& problems)
{
    if (id.isEmpty() || id.contains('_'))
        problems.push_back(
            {origin, QStringLiteral("the id \"%1\" may not be empty or contain \"_\"").arg(id)});
}

bool isPrefixAndNumber(const QString& id, const QString& prefix)
{
    static const QRegularExpression kNumber(QStringLiteral("^[0-9]{2}$"));
    return id.startsWith(prefix) && kNumber.match(id.mid(prefix.size())).hasMatch();
}

// Parameters are shown in the order of their ids: type, chapter, number.
void checkPrefixes(const Type& type, const Group& group, Problems& problems)
{
    const QString ofType = QStringLiteral("%1").arg(type.id, 2, 10, QLatin1Char('0'));
    if (!isPrefixAndNumber(group.id, 'G' + ofType)) {
        problems.push_back(
            {group.origin,
             QStringLiteral("the group \"%1\" is not \"G%2\" and two digits").arg(group.id, ofType)});
        return;
    }
    const QString prefix = 'P' + group.id.mid(1);
    for (const Parameter& parameter : group.parameters)
        if (!isPrefixAndNumber(parameter.id, prefix))
            problems.push_back(
                {parameter.origin,
                 QStringLiteral("the id \"%1\" is not \"%2\" and two digits").arg(parameter.id, prefix)});
}

// An instrument's own display names a parameter by its tag, in shapes that know no capitals.
void checkTags(const Type& type, Problems& problems)
{
    static const QRegularExpression kTag(QStringLiteral("^[!-~]+$"));
    Unique tags(QStringLiteral("the tag"), problems);
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters) {
            if (!kTag.match(parameter.tag).hasMatch())
                problems.push_back(
                    {parameter.origin,
                     QStringLiteral("the tag \"%1\" is not in plain letters and digits").arg(parameter.tag)});
            tags.add(parameter.tag, parameter.origin);
        }
}

// A new instrument gets its type's base address. What is never offered has none to lose.
class BaseAddresses
{
public:
    explicit BaseAddresses(Problems& problems) : problems_(problems) {}

    void add(const Type& type)
    {
        static const QRegularExpression kAddress(QStringLiteral("^[0-9A-F]{2}$"));
        if (!kAddress.match(type.base).hasMatch())
            problems_.push_back(
                {type.origin,
                 QStringLiteral("the base address \"%1\" is not two hexadecimal digits, letters as capitals")
                     .arg(type.base)});
        else if (type.tag != kNeverOffered)
            taken_.add(type.base, type.origin);
    }

private:
    Problems& problems_;
    Unique taken_{QStringLiteral("the base address"), problems_};
};

void checkType(const Type& type, Problems& problems)
{
    if (type.id < 1)
        problems.push_back({type.origin, QStringLiteral("types are numbered from 1")});
    if (type.groups.empty())
        problems.push_back({type.origin, QStringLiteral("the type \"%1\" has no group").arg(type.tag)});
    for (const Group& group : type.groups)
        if (group.parameters.empty())
            problems.push_back(
                {group.origin, QStringLiteral("the group \"%1\" has no parameter").arg(group.id)});
}

} // namespace

void checkNames(const Catalogue& catalogue, Problems& problems)
{
    Unique typeNumbers(QStringLiteral("the type number"), problems);
    Unique typeTags(QStringLiteral("the type code"), problems);
    Unique groups(QStringLiteral("the group"), problems);
    Unique parameters(QStringLiteral("the parameter"), problems);
    Unique choiceSets(QStringLiteral("the choices"), problems);
    BaseAddresses bases(problems);
    if (catalogue.version.isEmpty())
        problems.push_back({{QStringLiteral("common"), 0}, QStringLiteral("no version is told")});
    for (const ChoiceSet& set : catalogue.choiceSets)
        choiceSets.add(set.name, set.origin);
    for (const Type& type : catalogue.types) {
        typeNumbers.add(QString::number(type.id), type.origin);
        typeTags.add(type.tag, type.origin);
        bases.add(type);
        checkType(type, problems);
        checkTags(type, problems);
        for (const Group& group : type.groups) {
            groups.add(group.id, group.origin);
            checkId(group.id, group.origin, problems);
            checkPrefixes(type, group, problems);
        }
    }
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        parameters.add(parameter.id, parameter.origin);
        checkId(parameter.id, parameter.origin, problems);
    });
}

} // namespace catalogue
