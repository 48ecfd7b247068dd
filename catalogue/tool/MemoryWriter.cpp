#include "catalogue/tool/MemoryWriter.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Database.h"
#include "catalogue/tool/HeldValue.h"
#include "catalogue/tool/InstrumentText.h"
#include "catalogue/tool/ModelReader.h"
#include "catalogue/tool/TextOutput.h"

#include <QFile>
#include <QSet>
#include <algorithm>
#include <map>

namespace catalogue {

namespace {

constexpr int kBytesALine = 16;
constexpr int kEepromSize = 256;

struct Memory
{
    std::map<int, QByteArray> banks;   // by Bank::id
    std::map<int, QByteArray> eeproms; // by write command
};

// Lays bytes into an image; a bit field only touches its own bits.
void lay(QByteArray& image, int at, const Parameter& parameter, const QByteArray& bytes)
{
    if (parameter.wire == "BIT") {
        const int mask = ((1 << parameter.bitCount) - 1) << parameter.bitFirst;
        image[at] = static_cast<char>((image[at] & ~mask) | bytes[0]);
    } else {
        image.replace(at, bytes.size(), bytes);
    }
}

// A few counts away, inside the limits.
int near(const Parameter& parameter, int raw, unsigned number)
{
    const auto [first, last] = rawRange(parameter);
    const int step = 1 + static_cast<int>(number % 3);
    for (const int candidate :
         {raw + (number & 8 ? step : -step), raw + step, raw - step, raw + 1, raw - 1}) {
        if (candidate < first || candidate > last)
            continue;
        const double value = engineering(parameter, candidate);
        if (value >= parameter.low && value <= parameter.high)
            return candidate;
    }
    return raw;
}

// The lowest count whose value the limits allow.
int lowestAllowed(const Parameter& parameter)
{
    const auto [first, last] = rawRange(parameter);
    for (int raw = first; raw < last; ++raw)
        if (engineering(parameter, raw) >= parameter.low && engineering(parameter, raw) <= parameter.high)
            return raw;
    return last;
}

// What a probe that isn't there gives: a count that the limits reject, where there is one.
int missing(const Parameter& parameter)
{
    const int last = rawRange(parameter).second;
    return decoded(parameter, bytesOf(parameter, last)) ? lowestAllowed(parameter) : last;
}

class MemoryWriter
{
public:
    MemoryWriter(const Demo& demo, const Catalogue& catalogue, SQLite::Database& company)
        : demo_(demo), company_(company), banks_(banksOf(company))
    {
        for (const Type& type : catalogue.types)
            for (const Group& group : type.groups)
                for (const Parameter& parameter : group.parameters)
                    catalogue_[parameter.id] = parameter;
    }

    QString text()
    {
        QString result = "# What the instruments of the demo company hold.\n";
        SQLite::Statement plants(company_, "SELECT IDGrp, Phone FROM tbGroupsUser ORDER BY IDGrp");
        while (plants.executeStep())
            result += plantText(plants.getColumn(0).getInt(), textOf(plants.getColumn(1)));
        return result;
    }

private:
    QString plantText(int plant, const QString& phone)
    {
        QString result = QStringLiteral("\n[plant %1]\n").arg(plant);
        if (!phone.isEmpty())
            result += QStringLiteral("phone %1\n").arg(phone);
        if (const DemoPlant* told = plantOfDemo(plant))
            result += callsText(*told);
        SQLite::Statement instruments(
            company_,
            "SELECT IDInst, IDItem, Address FROM tbInstrumentsUser WHERE IDGrp = ? ORDER BY IDInst");
        instruments.bind(1, plant);
        QSet<QString> taken;
        while (instruments.executeStep()) {
            const Place place{plant, instruments.getColumn(0).getInt(), textOf(instruments.getColumn(2))};
            if (place.address.size() != 2 || taken.contains(place.address))
                continue; // nothing answers there, or another one does
            taken.insert(place.address);
            result += QStringLiteral("[instrument %1]\n").arg(place.address);
            result += memoryText(memoryOf(place, textOf(instruments.getColumn(1))));
        }
        return result;
    }

    static QString callsText(const DemoPlant& plant)
    {
        QString result;
        for (const DemoInstrument& instrument : plant.instruments)
            for (const DemoCall& call : instrument.calls)
                result += QStringLiteral("call %1 : <%2><%3><%4>\n")
                              .arg(QString::number(call.seconds), plant.name, instrument.name,
                                   call.alarms.join(QStringLiteral("><")));
        return result;
    }

    // As the company's own copy of the catalogue has it, which may be older than the sources.
    Memory memoryOf(const Place& place, const QString& type)
    {
        Memory memory;
        for (const Parameter& parameter : parametersOf(company_, type)) {
            const QByteArray bytes = bytesHeld(place, parameter);
            const Bank& bank = bankOf(parameter.bank);
            QByteArray& image = memory.banks.try_emplace(bank.id, QByteArray(bank.size, '\0')).first->second;
            lay(image, parameter.address - bank.start, parameter, bytes);
            if (parameter.writeCmd != 0) {
                QByteArray& eeprom =
                    memory.eeproms.try_emplace(parameter.writeCmd, QByteArray(kEepromSize, '\0'))
                        .first->second;
                lay(eeprom, parameter.writeAddress, parameter, bytes);
            }
        }
        return memory;
    }

    const Bank& bankOf(int id) const { return *std::ranges::find(banks_, id, &Bank::id); }

    QByteArray bytesHeld(const Place& place, const Parameter& parameter)
    {
        if (const DemoValue* held = heldByDemo(place, parameter.id))
            return bytesOfText(parameter, storedValue(parameter, *held), 0);
        SQLite::Statement row(company_, "SELECT Value, State FROM tbParametersUser "
                                        "WHERE IDGrp = ? AND IDInst = ? AND IDPar = ?");
        row.bind(1, place.plant);
        row.bind(2, place.instrument);
        bindText(row, 3, parameter.id);
        const auto known = catalogue_.find(parameter.id);
        std::optional<QString> value =
            valueHeld(known == catalogue_.end() ? parameter : known->second, place);
        if (row.executeStep() && row.getColumn(1).getInt() == 0 && !row.getColumn(0).isNull())
            value = textOf(row.getColumn(0));
        return bytesOfText(parameter, value, scatter(place, parameter.id));
    }

    // Null for what the operator has added since the demo was made.
    const DemoPlant* plantOfDemo(int plant) const
    {
        const auto at = static_cast<size_t>(plant - 1);
        return at < demo_.plants.size() ? &demo_.plants[at] : nullptr;
    }

    const DemoValue* heldByDemo(const Place& place, const QString& parameter) const
    {
        const DemoPlant* plant = plantOfDemo(place.plant);
        const auto at = static_cast<size_t>(place.instrument - 1);
        if (plant == nullptr || at >= plant->instruments.size())
            return nullptr;
        const auto& holds = plant->instruments[at].holds;
        const auto found = std::ranges::find(holds, parameter, &DemoValue::parameter);
        return found == holds.end() ? nullptr : &*found;
    }

    // Zero as number leaves the value as it is. Every reading moves, of the settings every eighth.
    static QByteArray bytesOfText(const Parameter& parameter, const std::optional<QString>& value,
                                  unsigned number)
    {
        if (parameter.wire == "STRING")
            return instrumentText(value.value_or(QString()))
                .value_or(QByteArray("?"))
                .leftJustified(parameter.size, ' ', true);
        if (!value)
            return bytesOf(parameter, parameter.editable ? lowestAllowed(parameter) : missing(parameter));
        const int raw = rawOf(parameter, *value).value_or(lowestAllowed(parameter));
        const bool moves = number != 0 && parameter.key != "ENUM" && (!parameter.editable || number % 8 == 0);
        return bytesOf(parameter, moves ? near(parameter, raw, number) : raw);
    }

    QString memoryText(const Memory& memory) const
    {
        QString result;
        for (const auto& [id, image] : memory.banks) {
            const Bank& bank = bankOf(id);
            result += QStringLiteral("bank %1 %2 %3 %4 :")
                          .arg(bank.readCmd)
                          .arg(bank.writeCmd)
                          .arg(bank.start)
                          .arg(bank.size);
            result += bytesText(image);
        }
        for (const auto& [command, image] : memory.eeproms)
            result += QStringLiteral("eeprom %1 :").arg(command) + bytesText(image);
        return result;
    }

    static QString bytesText(const QByteArray& bytes)
    {
        QString result;
        for (qsizetype at = 0; at < bytes.size(); at += kBytesALine)
            result += "\n " + bytes.mid(at, kBytesALine).toHex(' ');
        return result + '\n';
    }

    const Demo& demo_;
    SQLite::Database& company_;
    std::vector<Bank> banks_;
    std::map<QString, Parameter> catalogue_; // by id
};

} // namespace

void writeMemory(const Demo& demo, const Catalogue& catalogue, const QString& company, const QString& target)
{
    if (!QFile::exists(company))
        refuse({company}, QStringLiteral("there is no such company"));
    SQLite::Database database(company.toStdString(), SQLite::OPEN_READONLY);
    writeText(target, MemoryWriter(demo, catalogue, database).text());
}

} // namespace catalogue
