#include "structure/PlantMarks.h"

#include "structure/InstrumentMemory.h"
#include "support/CompanyFixture.h"

namespace {

using structure::kHoldsChanges;
using structure::kHoldsUnconfirmed;
using structure::TreeModel;

class PlantMarksTest : public support::CompanyFixture
{
protected:
    PlantMarksTest()
    {
        connectPlant();
        runOnPlant("UPDATE tbParametersUser SET State = 0;");
        for (const char* key : {"Root", "1_1", "2_1_1"})
            structure.clickNode(key);
        QObject::connect(&marks, &structure::PlantMarks::changed, [this] { ++told; });
        marks.refresh();
    }
    int marksOf(const QString& key)
    {
        return structure.tree().data(structure.tree().indexOf(key), TreeModel::MarkRole).toInt();
    }
    void change(const QString& where)
    {
        session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 1 WHERE " + where);
    }

    structure::PlantMarks marks{session, structure};
    int told = 0;
};

TEST_F(PlantMarksTest, CountsWhatWaitsAndMarksWhatIsAboveIt)
{
    EXPECT_EQ(marks.waiting(), 0);
    EXPECT_EQ(marksOf("Root"), 0);
    change("IDGrp = 1 AND IDInst = 1 AND IDPar IN ('P0101', 'P0102')");
    EXPECT_EQ(marksOf("Root"), 0) << "nobody has looked";
    told = 0;
    marks.refresh();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(marks.waiting(), 2);
    for (const char* key : {"Root", "1_1", "2_1_1", "3_1_1_G01"})
        EXPECT_EQ(marksOf(key), kHoldsChanges) << key;
    for (const char* key : {"1_2", "3_1_1_G02"})
        EXPECT_EQ(marksOf(key), 0) << key;
}

TEST_F(PlantMarksTest, LooksOnlyWhereSomethingHasChanged)
{
    told = 0;
    marks.refresh();
    EXPECT_EQ(told, 0);
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0");
    marks.refresh();
    EXPECT_EQ(told, 1);
}

TEST_F(PlantMarksTest, AWriteInDoubtMarksWhatIsAboveIt)
{
    EXPECT_EQ(marks.unconfirmed(), 0);
    structure.memory().remember({"4_1_1_G01_P0101", "Set", "ALPHA", "Measures", "5", "7"});
    EXPECT_EQ(marks.unconfirmed(), 1);
    for (const char* key : {"Root", "1_1", "2_1_1", "3_1_1_G01"})
        EXPECT_EQ(marksOf(key), kHoldsUnconfirmed) << key;
    change("IDGrp = 1 AND IDInst = 1 AND IDPar = 'P0101'");
    marks.refresh();
    EXPECT_EQ(marksOf("3_1_1_G01"), kHoldsChanges | kHoldsUnconfirmed);
}

TEST_F(PlantMarksTest, AClosedCompanyHasNothingToWrite)
{
    change("IDGrp = 1 AND IDInst = 1 AND IDPar = 'P0101'");
    marks.refresh();
    told = 0;
    database.Disconnect_Database();
    marks.refresh();
    EXPECT_EQ(marks.waiting(), 0);
    EXPECT_EQ(told, 1);
    marks.refresh();
    EXPECT_EQ(told, 1);
    connectPlant();
    marks.refresh();
    EXPECT_EQ(marks.waiting(), 1);
}

TEST_F(PlantMarksTest, AnotherCompanyKnowsNothingOfTheDoubts)
{
    structure.memory().remember({"4_1_1_G01_P0101", "Set", "ALPHA", "Measures", "5", "7"});
    database.Disconnect_Database();
    support::makePlant(file("Data/Other.mdb"));
    session.DbName = "Other.mdb";
    ASSERT_TRUE(database.Connect_Database(session.dbFile()));
    marks.refresh();
    EXPECT_EQ(marks.unconfirmed(), 0);
    database.Disconnect_Database();
    connectPlant();
    marks.refresh();
    EXPECT_EQ(marks.unconfirmed(), 1);
}

} // namespace
