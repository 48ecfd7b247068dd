#include "catalogue/tool/Checks.h"

#include <QHash>
#include <QRegularExpression>

namespace catalogue {

namespace {

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

void checkType(const Type& type, Problems& problems)
{
    static const QRegularExpression kAddress(QStringLiteral("^[0-9A-F]{2}$"));
    if (type.id < 1)
        problems.push_back({type.origin, QStringLiteral("types are numbered from 1")});
    if (!kAddress.match(type.base).hasMatch())
        problems.push_back(
            {type.origin,
             QStringLiteral("the base address \"%1\" is not two hexadecimal characters").arg(type.base)});
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
    if (catalogue.version.isEmpty())
        problems.push_back({{QStringLiteral("common"), 0}, QStringLiteral("no version is told")});
    for (const ChoiceSet& set : catalogue.choiceSets)
        choiceSets.add(set.name, set.origin);
    for (const Type& type : catalogue.types) {
        typeNumbers.add(QString::number(type.id), type.origin);
        typeTags.add(type.tag, type.origin);
        checkType(type, problems);
        for (const Group& group : type.groups) {
            groups.add(group.id, group.origin);
            checkId(group.id, group.origin, problems);
        }
    }
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        parameters.add(parameter.id, parameter.origin);
        checkId(parameter.id, parameter.origin, problems);
        if (parameter.tag.isEmpty())
            problems.push_back({parameter.origin, QStringLiteral("the parameter has no tag")});
    });
}

} // namespace catalogue
