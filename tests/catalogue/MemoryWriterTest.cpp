#include "catalogue/tool/MemoryWriter.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/InstrumentText.h"
#include "tests/catalogue/Published.h"

#include <algorithm>
#include <map>

namespace catalogue {
namespace {

using testing::opened;
using testing::published;

// The images of one instrument, as the file tells them.
struct Images
{
    std::map<int, QByteArray> banks; // by read command
    std::map<int, int> starts;
    std::map<int, QByteArray> eeproms; // by write command
};

// By "plant/address".
std::map<QString, Images> readMemory(const QString& file)
{
    QFile source(file);
    EXPECT_TRUE(source.open(QIODevice::ReadOnly));
    std::map<QString, Images> memory;
    QString plant;
    Images* images = nullptr;
    QByteArray* image = nullptr;
    for (const QString& line : QString::fromUtf8(source.readAll()).split('\n', Qt::SkipEmptyParts)) {
        const QStringList words = line.simplified().split(' ');
        if (words[0] == "[plant")
            plant = words[1].chopped(1);
        else if (words[0] == "[instrument")
            images = &memory[plant + '/' + words[1].chopped(1)];
        else if (words[0] == "bank") {
            image = &images->banks[words[1].toInt()];
            images->starts[words[1].toInt()] = words[3].toInt();
        } else if (words[0] == "eeprom")
            image = &images->eeproms[words[1].toInt()];
        else if (line.startsWith(' '))
            image->append(QByteArray::fromHex(line.toLatin1()));
    }
    return memory;
}

const std::map<QString, Images>& memory()
{
    static const std::map<QString, Images> kMemory = [] {
        const QString file = published().folder.filePath("memory.txt");
        writeMemory(published().demo, published().catalogue, published().company, file);
        return readMemory(file);
    }();
    return kMemory;
}

struct Held
{
    QString key; // plant/address
    Parameter parameter;
    std::optional<QString> company;
    int state = 0;
    std::optional<QString> instrument; // decoded from the bank
};

// Every parameter of every instrument of the demo, from both sides.
std::vector<Held> everything()
{
    std::vector<Held> result;
    SQLite::Database company = opened(published().company);
    const std::vector<Bank>& banks = published().catalogue.banks;
    std::map<QString, std::map<QString, Parameter>> types;
    SQLite::Statement rows(
        company, "SELECT p.IDGrp, i.Address, i.IDItem, p.IDPar, p.Value, p.State FROM tbParametersUser p "
                 "INNER JOIN tbInstrumentsUser i ON p.IDGrp = i.IDGrp AND p.IDInst = i.IDInst");
    while (rows.executeStep()) {
        const QString type = QString::fromStdString(rows.getColumn(2).getString());
        if (!types.contains(type))
            for (const Group& group : published().catalogue.type(type)->groups)
                for (const Parameter& parameter : group.parameters)
                    types[type][parameter.id] = parameter;
        Held held;
        held.key =
            QString::fromStdString(rows.getColumn(0).getString() + "/" + rows.getColumn(1).getString());
        held.parameter = types[type].at(QString::fromStdString(rows.getColumn(3).getString()));
        if (!rows.getColumn(4).isNull())
            held.company = QString::fromStdString(rows.getColumn(4).getString());
        held.state = rows.getColumn(5).getInt();
        const Bank& bank = *std::ranges::find(banks, held.parameter.bank, &Bank::id);
        const QByteArray& image = memory().at(held.key).banks.at(bank.readCmd);
        held.instrument =
            decoded(held.parameter, image.mid(held.parameter.address - bank.start, held.parameter.size));
        result.push_back(held);
    }
    return result;
}

TEST(MemoryWriter, writesEveryBankWhole)
{
    size_t instruments = 0;
    for (const DemoPlant& plant : published().demo.plants)
        instruments += plant.instruments.size();
    EXPECT_EQ(memory().size(), instruments);
    for (const auto& [key, images] : memory()) {
        for (const Bank& bank : published().catalogue.banks)
            if (images.banks.contains(bank.readCmd)) {
                EXPECT_EQ(images.banks.at(bank.readCmd).size(), bank.size) << key.toStdString();
                EXPECT_EQ(images.starts.at(bank.readCmd), bank.start) << key.toStdString();
            }
        for (const auto& [command, image] : images.eeproms)
            EXPECT_EQ(image.size(), 256) << key.toStdString() << " " << command;
    }
}

// A read by banks leaves nothing unread but texts that are empty and probes that are missing.
TEST(MemoryWriter, holdsAValueForEveryParameter)
{
    for (const Held& held : everything())
        if (held.parameter.wire != "STRING" && (held.parameter.editable || held.parameter.standard)) {
            EXPECT_TRUE(held.instrument) << held.key.toStdString() << " " << held.parameter.id.toStdString();
        }
}

TEST(MemoryWriter, liesNearTheCompanyWithoutBeingTheSame)
{
    size_t readings = 0;
    size_t moved = 0;
    size_t same = 0;
    for (const Held& held : everything()) {
        if (held.state != 0 || !held.company || held.parameter.wire == "STRING" ||
            held.parameter.key == "TIME_H")
            continue;
        const std::optional<int> here = rawOf(held.parameter, *held.company);
        const std::optional<int> there = rawOf(held.parameter, *held.instrument);
        ASSERT_TRUE(here && there) << held.parameter.id.toStdString();
        EXPECT_LE(std::abs(*here - *there), 3) << held.parameter.id.toStdString();
        readings += held.parameter.editable ? 0 : 1;
        moved += !held.parameter.editable && *here != *there ? 1 : 0;
        same += held.parameter.editable && *here == *there ? 1 : 0;
    }
    EXPECT_GT(readings, 1000u);
    EXPECT_GT(moved, readings / 4);
    EXPECT_GT(same, 1000u);
}

TEST(MemoryWriter, stillHoldsTheStandardOfWhatWaitsToBeWritten)
{
    size_t waiting = 0;
    for (const Held& held : everything()) {
        if (held.state != 1)
            continue;
        ++waiting;
        EXPECT_NE(held.instrument, held.company)
            << held.key.toStdString() << " " << held.parameter.id.toStdString();
    }
    EXPECT_GT(waiting, 10u);
}

TEST(MemoryWriter, keepsTheSameInTheEepromAsInTheBank)
{
    for (const Held& held : everything()) {
        if (held.parameter.writeCmd == 0)
            continue;
        const QByteArray& image = memory().at(held.key).eeproms.at(held.parameter.writeCmd);
        EXPECT_EQ(decoded(held.parameter, image.mid(held.parameter.writeAddress, held.parameter.size)),
                  held.instrument)
            << held.key.toStdString() << " " << held.parameter.id.toStdString();
    }
}

TEST(MemoryWriter, obeysWhatTheDemoSaysAnInstrumentHolds)
{
    testing::SourceFolder folder;
    folder.write("demo.txt",
                 "plant \"ONE\" \"\"\ninstrument 11 NVC-210 \"ROOM\"\nvalue P020101 3\nholds P020101 -4.5\n"
                 "call 60 \"HOT\" \"OPEN\"\nvalue P028505 \"ПИК\"\nvalue P020106 22:30\n");
    const Demo demo = readDemo(folder.file("demo.txt"));
    writeCompany(demo, published().catalogue, published().model, folder.file("company.mdb"));
    writeMemory(demo, published().catalogue, folder.file("company.mdb"), folder.file("memory.txt"));
    const auto memory = readMemory(folder.file("memory.txt"));
    const QByteArray setup = memory.at("1/11").banks.at(82);
    EXPECT_EQ(setup.mid(40 - 16, 1).toHex(), QByteArray("5b")); // (-4.5 + 50) / 0.5
    EXPECT_LE(std::abs(static_cast<quint8>(setup[45 - 16]) - 135), 3);
    EXPECT_EQ(setup.mid(228 - 16, 4).toHex(), QByteArray("a8a54b20")); // К has a Latin twin
    QFile file(folder.file("memory.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\ncall 60 : <ONE><ROOM><HOT><OPEN>\n"));
}

// Whoever plays with the demo adds plants and instruments, gives two of them one address, and starts again.
TEST(MemoryWriter, followsWhatAnOperatorHasAddedToTheDemo)
{
    testing::SourceFolder folder;
    folder.write("more.txt",
                 "plant \"ONE\" \"\"\ninstrument 11 NVC-210 \"A\"\ninstrument 12 NVC-210 \"B\"\n"
                 "instrument 13 NVC-210 \"C\"\nplant \"TWO\" \"\"\ninstrument 21 NVF-230 \"D\"\n");
    folder.write("less.txt", "plant \"ONE\" \"\"\ninstrument 11 NVC-210 \"A\"\nholds P020101 5\n");
    const QString company = folder.file("company.mdb");
    writeCompany(readDemo(folder.file("more.txt")), published().catalogue, published().model, company);
    SQLite::Database(company.toStdString(), SQLite::OPEN_READWRITE)
        .exec("UPDATE tbInstrumentsUser SET Address = '11' WHERE Name = 'B'; "
              "UPDATE tbInstrumentsUser SET Address = NULL WHERE Name = 'C'");
    writeMemory(readDemo(folder.file("less.txt")), published().catalogue, company, folder.file("memory.txt"));
    const auto memory = readMemory(folder.file("memory.txt"));
    ASSERT_EQ(memory.size(), 2u);
    EXPECT_EQ(memory.at("1/11").banks.at(82).mid(40 - 16, 1).toHex(), QByteArray("6e")); // (5 + 50) / 0.5
    EXPECT_EQ(memory.count("2/21"), 1u);
}

// A probe that nobody fitted shows "--" after a read.
TEST(MemoryWriter, hasNoMeasurementWhereTheCatalogueHasNone)
{
    size_t probes = 0;
    for (const Held& held : everything())
        if (held.parameter.id == "P030603") {
            EXPECT_EQ(held.instrument, std::nullopt);
            EXPECT_EQ(held.company, std::nullopt);
            ++probes;
        }
    EXPECT_GT(probes, 3u);
}

} // namespace
} // namespace catalogue
