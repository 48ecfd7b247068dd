#include "catalogue/tool/Checks.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <map>

namespace catalogue {

namespace {

constexpr int kFamily = 2; // characters of a class that name the family of blocks
constexpr int kBlock = 5;  // and those that name the block, with its family

using Places = std::map<QString, const Parameter*>; // by the characters behind the block
using Blocks = std::map<QString, Places>;           // by the block

bool isClass(const QString& text)
{
    static const QRegularExpression kClass(QStringLiteral("^\\w\\w\\W\\d\\d\\W\\d\\d$"));
    return kClass.match(text).hasMatch() && !text.contains('_');
}

Blocks blocksOf(const Type& type, Problems& problems)
{
    Blocks blocks;
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters) {
            if (parameter.copy.isEmpty())
                continue;
            if (!isClass(parameter.copy)) {
                problems.push_back(
                    {parameter.origin, QStringLiteral("the copy class \"%1\" is not eight characters "
                                                      "such as CP.01.01")
                                           .arg(parameter.copy)});
            } else if (!blocks[parameter.copy.left(kBlock)]
                            .try_emplace(parameter.copy.mid(kBlock), &parameter)
                            .second) {
                problems.push_back(
                    {parameter.origin,
                     QStringLiteral("the copy class \"%1\" is there twice").arg(parameter.copy)});
            }
        }
    return blocks;
}

// A value can move only between parameters that mean and hold the same.
bool alike(const Parameter& one, const Parameter& other)
{
    return one.key == other.key && one.wire == other.wire && one.size == other.size &&
           one.unit == other.unit && one.choices == other.choices && one.low == other.low &&
           one.high == other.high;
}

void checkLikeFirst(const Places& first, const Places& places, Problems& problems)
{
    for (const auto& [place, parameter] : places) {
        const auto model = first.find(place);
        if (model == first.end())
            problems.push_back(
                {parameter->origin,
                 QStringLiteral("the first block of the family has no place \"%1\"").arg(place)});
        else if (!alike(*model->second, *parameter))
            problems.push_back(
                {parameter->origin, QStringLiteral("\"%1\" differs from \"%2\", of which it is a copy")
                                        .arg(parameter->id, model->second->id)});
    }
    if (places.size() < first.size())
        problems.push_back({places.begin()->second->origin,
                            QStringLiteral("this block lacks places that the first of its family has")});
}

} // namespace

void checkCopies(const Catalogue& catalogue, Problems& problems)
{
    QSet<QString> described;
    for (const CopyBlock& block : catalogue.copyBlocks)
        described.insert(block.id);
    QSet<QString> families;
    for (const Type& type : catalogue.types) {
        const Blocks blocks = blocksOf(type, problems);
        std::map<QString, const Places*> firstOfFamily;
        for (const auto& [block, places] : blocks) {
            const QString family = block.left(kFamily);
            const Places& first = *firstOfFamily.try_emplace(family, &places).first->second;
            checkLikeFirst(first, places, problems);
            if (!described.contains(block))
                problems.push_back({places.begin()->second->origin,
                                    QStringLiteral("the block \"%1\" has no description").arg(block)});
        }
        for (const auto& [family, places] : firstOfFamily) {
            if (families.contains(family))
                problems.push_back({places->begin()->second->origin,
                                    QStringLiteral("the family \"%1\" belongs to another type").arg(family)});
            families.insert(family);
        }
    }
}

} // namespace catalogue
