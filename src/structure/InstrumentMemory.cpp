#include "structure/InstrumentMemory.h"

#include <QStringBuilder>
#include <algorithm>
#include <utility>

namespace structure {

QString InstrumentMemory::placeOf(const QString& IDGrp, const QString& IDInst, const QString& IDPar)
{
    return IDGrp % u'_' % IDInst % u'_' % IDPar;
}

QString InstrumentMemory::placeOf(const QString& key)
{
    const KeyParts ids = Extract_Key(key);
    return placeOf(ids.IDGrp, ids.IDInst, ids.IDPar);
}

void InstrumentMemory::see(const QString& IDGrp, const QString& IDInst, const QString& IDPar,
                           const QString& value)
{
    const QString place = placeOf(IDGrp, IDInst, IDPar);
    seen_[place] = value;
    const auto resolved =
        std::erase_if(unconfirmed_, [&](const auto& one) { return placeOf(one.first) == place; });
    if (resolved > 0)
        emit changed();
}

void InstrumentMemory::keepEqual(const KeyParts& ids, const QString& value)
{
    const QString place = placeOf(ids.IDGrp, ids.IDInst, ids.IDPar);
    const bool doubted = std::any_of(unconfirmed_.begin(), unconfirmed_.end(),
                                     [&](const auto& one) { return placeOf(one.first) == place; });
    if (!doubted)
        seen_[place] = value;
}

void InstrumentMemory::remember(const UnconfirmedWrite& write)
{
    unconfirmed_[write.key] = write;
    emit changed();
}

bool InstrumentMemory::isBelow(const KeyParts& element, const KeyParts& above)
{
    return (above.IDGrp.isEmpty() || above.IDGrp == element.IDGrp) &&
           (above.IDInst.isEmpty() || above.IDInst == element.IDInst) &&
           (above.IDParGrp.isEmpty() || above.IDParGrp == element.IDParGrp) &&
           (above.IDPar.isEmpty() || above.IDPar == element.IDPar);
}

void InstrumentMemory::forgetBelow(const QString& key)
{
    const KeyParts above = Extract_Key(key);
    const QString start = above.IDInst.isEmpty() ? QString(above.IDGrp % u'_')
                                                 : QString(above.IDGrp % u'_' % above.IDInst % u'_');
    seen_.removeIf([&](const auto& one) { return one.key().startsWith(start); });
    if (std::erase_if(unconfirmed_, [&](const auto& one) { return isBelow(Extract_Key(one.first), above); }) >
        0)
        emit changed();
}

void InstrumentMemory::turnTo(const QString& company)
{
    if (company == company_)
        return;
    others_[company_] = {std::exchange(seen_, {}), std::exchange(unconfirmed_, {})};
    company_ = company;
    if (auto known = others_.extract(company); !known.empty()) {
        seen_ = std::move(known.mapped().seen);
        unconfirmed_ = std::move(known.mapped().unconfirmed);
    }
    emit changed();
}

std::optional<QString> InstrumentMemory::valueOf(const QString& key) const
{
    const auto seen = seen_.constFind(placeOf(key));
    return seen == seen_.constEnd() ? std::nullopt : std::make_optional(*seen);
}

bool InstrumentMemory::isUnconfirmed(const QString& key) const
{
    return unconfirmed_.contains(key);
}

} // namespace structure
