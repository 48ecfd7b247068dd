#include "catalogue/tool/Checks.h"

#include <QSet>
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
            {parameter.origin, QStringLiteral("address %1 lies outside its bank").arg(parameter.address)});
    if (!isByte(parameter.writeCmd) || !isByte(parameter.writeAddress) ||
        (parameter.writeCmd != 0 && parameter.writeAddress + parameter.size > 256))
        problems.push_back({parameter.origin, QStringLiteral("command and place in the EEPROM are bytes")});
}

// Who holds which bits of a memory: a bank's RAM, or the EEPROM behind a command.
class Occupation
{
public:
    explicit Occupation(Problems& problems) : problems_(problems) {}

    void take(const QString& memory, int address, const Parameter& parameter)
    {
        const int mask =
            parameter.wire == "BIT" ? ((1 << parameter.bitCount) - 1) << parameter.bitFirst : 255;
        for (int at = address; at < address + parameter.size; ++at) {
            for (const auto& [taken, holder] : holders_[{memory, at}])
                if ((taken & mask) != 0) {
                    problems_.push_back({parameter.origin, QStringLiteral("\"%1\" lies on \"%2\" at %3:%4")
                                                               .arg(parameter.id, holder, memory)
                                                               .arg(at)});
                    return;
                }
            holders_[{memory, at}].push_back({mask, parameter.id});
        }
    }

private:
    Problems& problems_;
    std::map<std::pair<QString, int>, std::vector<std::pair<int, QString>>> holders_;
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

void checkOverlaps(const Type& type, Problems& problems)
{
    Occupation occupation(problems);
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters) {
            occupation.take(QStringLiteral("bank %1").arg(parameter.bank), parameter.address, parameter);
            if (parameter.writeCmd != 0)
                occupation.take(QStringLiteral("eeprom %1").arg(parameter.writeCmd), parameter.writeAddress,
                                parameter);
        }
    checkNeighbours(type, problems);
}

// The poll asks for the alive address with the read command of whatever parameter of the type stands at an
// alive address, its own or another type's: for a master, all of these must name the same command.
void checkAlive(const Catalogue& catalogue, const Type& type, const QSet<int>& aliveAddresses,
                Problems& problems)
{
    QSet<int> commands;
    bool standsThere = false;
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters) {
            standsThere = standsThere || parameter.address == type.alive;
            const Bank* bank = catalogue.bank(parameter.bank);
            if (bank != nullptr && aliveAddresses.contains(parameter.address))
                commands.insert(bank->readCmd);
        }
    if (!isByte(type.alive) || !standsThere)
        problems.push_back(
            {type.origin, QStringLiteral("no parameter stands at the alive address %1").arg(type.alive)});
    else if (type.master && commands.size() != 1)
        problems.push_back(
            {type.origin,
             QStringLiteral("the alive poll of a master finds %1 read commands").arg(commands.size())});
}

} // namespace

void checkMemory(const Catalogue& catalogue, Problems& problems)
{
    checkBanks(catalogue, problems);
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        checkPlace(catalogue, parameter, problems);
    });
    QSet<int> aliveAddresses;
    for (const Type& type : catalogue.types)
        aliveAddresses.insert(type.alive);
    for (const Type& type : catalogue.types) {
        checkOverlaps(type, problems);
        checkAlive(catalogue, type, aliveAddresses, problems);
    }
}

} // namespace catalogue
