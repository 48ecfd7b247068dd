#include "catalogue/tool/Checks.h"

#include <QSet>
#include <algorithm>
#include <map>

namespace catalogue {

namespace {

bool isByte(int value)
{
    return value >= 0 && value <= 255;
}

void checkBank(const Bank& bank, Problems& problems)
{
    if (!isByte(bank.readCmd) || !isByte(bank.writeCmd) || bank.readCmd == 0 || bank.writeCmd == 0)
        problems.push_back({bank.origin, QStringLiteral("the commands of a bank are bytes above 0")});
    if (bank.readCmd == bank.writeCmd)
        problems.push_back({bank.origin, QStringLiteral("a bank is read and written by different commands")});
    if (bank.size < 1 || bank.size > 255 || bank.start < 0 || bank.start + bank.size > 256)
        problems.push_back(
            {bank.origin, QStringLiteral("a bank has 1 to 255 bytes, none of them behind 255")});
}

void checkBanks(const Catalogue& catalogue, Problems& problems)
{
    QSet<int> ids;
    for (const Bank& bank : catalogue.banks) {
        checkBank(bank, problems);
        if (ids.contains(bank.id))
            problems.push_back({bank.origin, QStringLiteral("the bank %1 is there twice").arg(bank.id)});
        ids.insert(bank.id);
    }
}

void checkPlace(const Catalogue& catalogue, const Parameter& parameter, Problems& problems)
{
    const Bank* bank = catalogue.bank(parameter.bank);
    if (bank == nullptr || !isByte(parameter.address) || parameter.address < bank->start ||
        parameter.address + parameter.size > bank->start + bank->size)
        problems.push_back(
            {parameter.origin, QStringLiteral("address %1 lies outside the bank \"%2\", which has %3 to %4")
                                   .arg(parameter.address)
                                   .arg(bank->name)
                                   .arg(bank->start)
                                   .arg(bank->start + bank->size - 1)});
}

// The permanent memory mirrors the bank that it belongs to, so that no two places of it can collide.
void checkEeprom(const Catalogue& catalogue, const Parameter& parameter, Problems& problems)
{
    if (parameter.writeCmd == 0)
        return;
    const Bank& bank = *catalogue.bank(parameter.bank);
    const Eeprom* page = catalogue.eeprom(parameter.writeCmd);
    const QString place = QStringLiteral("%1:%2").arg(bank.name).arg(parameter.address);
    if (page == nullptr || page->bank != parameter.bank)
        problems.push_back(
            {parameter.origin, QStringLiteral("%1 is not kept in that page of the EEPROM").arg(place)});
    else if (parameter.writeAddress != parameter.address - bank.start)
        problems.push_back({parameter.origin, QStringLiteral("%1 is kept at %2:%3 of the EEPROM, not at %4")
                                                  .arg(place, page->name)
                                                  .arg(parameter.address - bank.start)
                                                  .arg(parameter.writeAddress)});
}

void checkEeproms(const Catalogue& catalogue, Problems& problems)
{
    for (const Eeprom& eeprom : catalogue.eeproms)
        if (!isByte(eeprom.writeCmd) || eeprom.writeCmd == 0)
            problems.push_back({eeprom.origin, QStringLiteral("the command of a page is a byte above 0")});
}

// Who holds which bits of the banks.
class Occupation
{
public:
    Occupation(const Catalogue& catalogue, Problems& problems) : catalogue_(catalogue), problems_(problems) {}

    void take(const Parameter& parameter)
    {
        const int mask =
            parameter.wire == "BIT" ? ((1 << parameter.bitCount) - 1) << parameter.bitFirst : 255;
        for (int at = parameter.address; at < parameter.address + parameter.size; ++at) {
            auto& holders = holders_[{parameter.bank, at}];
            for (const auto& [taken, holder] : holders)
                if ((taken & mask) != 0) {
                    problems_.push_back({parameter.origin,
                                         QStringLiteral("\"%1\" lies on \"%2\" at %3:%4")
                                             .arg(parameter.id, holder, catalogue_.bank(parameter.bank)->name)
                                             .arg(at)});
                    return;
                }
            holders.push_back({mask, parameter.id});
        }
    }

private:
    const Catalogue& catalogue_;
    Problems& problems_;
    std::map<std::pair<int, int>, std::vector<std::pair<int, QString>>> holders_;
};

// A bit field goes into the EEPROM merged with its neighbours of the RAM byte, so they share that byte too.
void checkNeighbours(const Type& type, Problems& problems)
{
    std::map<std::pair<int, int>, std::pair<int, int>> places;
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters) {
            if (parameter.wire != "BIT")
                continue;
            const std::pair place{parameter.writeCmd, parameter.writeAddress};
            const auto [found, isNew] = places.try_emplace({parameter.bank, parameter.address}, place);
            if (!isNew && found->second != place)
                problems.push_back(
                    {parameter.origin,
                     QStringLiteral("bit fields of one byte share their place in the EEPROM")});
        }
}

void checkOverlaps(const Catalogue& catalogue, const Type& type, Problems& problems)
{
    Occupation occupation(catalogue, problems);
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters)
            occupation.take(parameter);
    checkNeighbours(type, problems);
}

// The poll asks for the alive address with the read command of whatever parameter of the type stands at an
// alive address, its own or another type's. So there is one address for the whole range, and one parameter of
// each type at it.
void checkAlive(const Type& type, int aliveOfTheRange, Problems& problems)
{
    if (type.alive != aliveOfTheRange) {
        problems.push_back(
            {type.origin, QStringLiteral("the alive address is %1, but %2 in the rest of the range")
                              .arg(type.alive)
                              .arg(aliveOfTheRange)});
        return;
    }
    int standThere = 0;
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters)
            standThere += parameter.address == type.alive ? 1 : 0;
    if (standThere != 1)
        problems.push_back(
            {type.origin, QStringLiteral("%1 parameters stand at the alive address %2, not one")
                              .arg(standThere)
                              .arg(type.alive)});
}

// The one that most types have.
int aliveOfTheRange(const Catalogue& catalogue)
{
    std::map<int, int> counts;
    for (const Type& type : catalogue.types)
        ++counts[type.alive];
    const auto most = std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; });
    return most == counts.end() ? 0 : most->first;
}

} // namespace

void checkMemory(const Catalogue& catalogue, Problems& problems)
{
    checkBanks(catalogue, problems);
    checkEeproms(catalogue, problems);
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        checkPlace(catalogue, parameter, problems);
        checkEeprom(catalogue, parameter, problems);
    });
    const int alive = aliveOfTheRange(catalogue);
    for (const Type& type : catalogue.types) {
        checkOverlaps(catalogue, type, problems);
        checkAlive(type, alive, problems);
    }
}

} // namespace catalogue
