#include "catalogue/tool/MemoryWriter.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Database.h"
#include "catalogue/tool/ModelReader.h"
#include "catalogue/tool/TextOutput.h"

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

// A number that is always the same for the same parameter of the same instrument, and has no pattern to the
// eye.
unsigned scatter(int plant, int instrument, const QString& parameter)
{
    unsigned number = static_cast<unsigned>(plant * 31 + instrument);
    for (const QChar sign : parameter)
        number = number * 33 + sign.unicode();
    return number ^ number >> 7;
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

class MemoryWriter
{
public:
    MemoryWriter(const Demo& demo, SQLite::Database& company)
        : demo_(demo), company_(company), banks_(banksOf(company))
    {
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
        SQLite::Statement instruments(
            company_,
            "SELECT IDInst, IDItem, Address FROM tbInstrumentsUser WHERE IDGrp = ? ORDER BY IDInst");
        instruments.bind(1, plant);
        while (instruments.executeStep()) {
            result += QStringLiteral("[instrument %1]\n").arg(textOf(instruments.getColumn(2)));
            result += memoryText(
                memoryOf(plant, instruments.getColumn(0).getInt(), textOf(instruments.getColumn(1))));
        }
        return result;
    }

    Memory memoryOf(int plant, int instrument, const QString& type)
    {
        Memory memory;
        for (const Parameter& parameter : parametersOf(company_, type)) {
            const QByteArray bytes = bytesHeld(plant, instrument, parameter);
            const Bank& bank = *std::ranges::find(banks_, parameter.bank, &Bank::id);
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

    QByteArray bytesHeld(int plant, int instrument, const Parameter& parameter)
    {
        if (const std::optional<QString> held = heldByDemo(plant, instrument, parameter.id))
            return bytesOfText(parameter, *held, 0);
        SQLite::Statement row(company_, "SELECT Value, State FROM tbParametersUser "
                                        "WHERE IDGrp = ? AND IDInst = ? AND IDPar = ?");
        row.bind(1, plant);
        row.bind(2, instrument);
        bindText(row, 3, parameter.id);
        std::optional<QString> value = parameter.standard;
        if (row.executeStep() && row.getColumn(1).getInt() == 0 && !row.getColumn(0).isNull())
            value = textOf(row.getColumn(0));
        return bytesOfText(parameter, value, scatter(plant, instrument, parameter.id));
    }

    std::optional<QString> heldByDemo(int plant, int instrument, const QString& parameter) const
    {
        const auto& instruments = demo_.plants.at(static_cast<size_t>(plant - 1)).instruments;
        const auto& holds = instruments.at(static_cast<size_t>(instrument - 1)).holds;
        const auto found = std::ranges::find(holds, parameter, &DemoValue::parameter);
        return found == holds.end() ? std::nullopt : found->value;
    }

    // Zero as number leaves the value as it is. Every reading moves, of the settings every eighth.
    static QByteArray bytesOfText(const Parameter& parameter, const std::optional<QString>& value,
                                  unsigned number)
    {
        if (parameter.wire == "STRING")
            return value.value_or(QStringLiteral("NN")).toLatin1().leftJustified(parameter.size, ' ', true);
        const int raw =
            value ? rawOf(parameter, *value).value_or(lowestAllowed(parameter)) : lowestAllowed(parameter);
        const bool moves = number != 0 && parameter.key != "ENUM" && (!parameter.editable || number % 8 == 0);
        return bytesOf(parameter, moves ? near(parameter, raw, number) : raw);
    }

    QString memoryText(const Memory& memory) const
    {
        QString result;
        for (const auto& [id, image] : memory.banks) {
            const Bank& bank = *std::ranges::find(banks_, id, &Bank::id);
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
};

} // namespace

void writeMemory(const Demo& demo, const QString& company, const QString& target)
{
    SQLite::Database database(company.toStdString(), SQLite::OPEN_READONLY);
    writeText(target, MemoryWriter(demo, database).text());
}

} // namespace catalogue
