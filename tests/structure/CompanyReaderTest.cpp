#include "structure/CompanyReader.h"

#include "structure/PlantNames.h"
#include "support/CompanyFixture.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <semaphore>
#include <sqlite3.h>
#include <thread>

using structure::CompanyReader;
using structure::StopFlag;

namespace {

constexpr int kInSlice = CompanyReader::kRowsInSlice;
const char* const kParameters =
    "SELECT IDGrp, IDInst, IDPar FROM tbParametersUser WHERE ((IDGrp, IDInst, IDPar) > (?, ?, ?)) "
    "ORDER BY IDGrp, IDInst, IDPar LIMIT ?;";

class CompanyReaderTest : public support::CompanyFixture
{
protected:
    // One group with one instrument of that many parameters, and nothing else.
    void fill(int parameters)
    {
        runOnPlant(
            QString("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM "
                    "tbGroupsUser; INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (7, 'ONE');"
                    "INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name) VALUES (7, 3, 'KT100', "
                    "'ONLY'); INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp) "
                    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT %1) "
                    "SELECT 7, 3, printf('P%06d', i), 'G01' FROM n WHERE i <= %1;")
                .arg(parameters));
    }
    QStringList readAll()
    {
        const StopFlag stop = false;
        QStringList ids;
        CompanyReader company(plantFile());
        company.eachRowInSlices(kParameters, 3, stop,
                                [&](const platform::Statement& row) { ids << structure::textOf(row, 2); });
        return ids;
    }
};

TEST_F(CompanyReaderTest, ReadsEachRowOnceWhateverTheSlicesHold)
{
    for (const int rows : {1, kInSlice - 1, kInSlice, kInSlice + 1, 2 * kInSlice, 2 * kInSlice + 5}) {
        fill(rows);
        EXPECT_EQ(readAll(),
                  support::column(plantFile(), "SELECT IDPar FROM tbParametersUser ORDER BY IDPar"))
            << rows;
    }
    runOnPlant("DELETE FROM tbParametersUser;");
    EXPECT_EQ(readAll(), QStringList());
}

TEST_F(CompanyReaderTest, EndsWithTheSliceInWhichNobodyWaitsAnyMore)
{
    fill(3 * kInSlice);
    StopFlag stop = false;
    int rows = 0;
    CompanyReader company(plantFile());
    company.eachRowInSlices(kParameters, 3, stop, [&](const platform::Statement&) {
        if (++rows == 10)
            stop = true;
    });
    EXPECT_EQ(rows, kInSlice);
    stop = true;
    company.eachRowInSlices(kParameters, 3, stop,
                            [&](const platform::Statement&) { ADD_FAILURE() << "a row"; });
}

// A group may hold all the rows of a plant: they must not stand in a writer's way together.
TEST_F(CompanyReaderTest, AWriterWaitsForOneSliceOnly)
{
    fill(4 * kInSlice);
    std::binary_semaphore begins{0}, waits{0};
    std::atomic_int rows = 0;
    int rowsWhenWritten = -1;
    std::thread writer([&] {
        SQLite::Database plant(plantFile().toStdString(), SQLite::OPEN_READWRITE);
        struct Handler
        {
            std::binary_semaphore& waits;
            bool told = false;
        } handler{waits};
        sqlite3_busy_handler(
            plant.getHandle(),
            [](void* data, int) {
                auto* handler = static_cast<Handler*>(data);
                if (!std::exchange(handler->told, true))
                    handler->waits.release();
                std::this_thread::yield();
                return 1;
            },
            &handler);
        begins.acquire();
        plant.exec("UPDATE tbGroupsUser SET Name = 'TWO';");
        rowsWhenWritten = rows;
    });
    const StopFlag stop = false;
    CompanyReader company(plantFile());
    company.eachRowInSlices(kParameters, 3, stop, [&](const platform::Statement&) {
        if (++rows == 10) {
            begins.release();
            waits.acquire(); // it stands before the file now
        }
    });
    writer.join();
    EXPECT_EQ(rows, 4 * kInSlice);
    EXPECT_LE(rowsWhenWritten, 2 * kInSlice);
    EXPECT_EQ(support::column(plantFile(), "SELECT Name FROM tbGroupsUser"), QStringList{"TWO"});
}

TEST_F(CompanyReaderTest, KnowsTheNamesAboveAParameter)
{
    CompanyReader company(plantFile());
    structure::PlantNames names(company);
    EXPECT_EQ(names.above("1", "1").group, "GRP1");
    EXPECT_EQ(names.above("1", "1").instrument, "INST11");
    EXPECT_EQ(names.above("1", "2").instrument, "ALPHA");
    EXPECT_EQ(names.above("2", "1").group, "ALPHA");
    EXPECT_EQ(names.above("2", "1").instrument, "inst21");
    EXPECT_EQ(names.above("9", "9").group, "");
    EXPECT_EQ(names.above("1", "1").instrument, "INST11");
}

} // namespace
