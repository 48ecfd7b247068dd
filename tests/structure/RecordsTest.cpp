#include "structure/Records.h"

#include "support/CompanyFixture.h"

#include <QSignalSpy>

using platform::Pointer;
using structure::Records;
using structure::Structure;

namespace {

class RecordsTest : public support::CompanyFixture
{
protected:
    RecordsTest() { connectPlant(); }

    QStringList plant(const QString& sql) { return support::column(plantFile(), sql); }
    // Every row of the three plant tables as one text each.
    QStringList everything()
    {
        return plant("SELECT quote(IDGrp) || quote(Name) || quote(Description) || quote(Phone) "
                     "FROM tbGroupsUser ORDER BY IDGrp") +
               plant("SELECT quote(IDGrp) || quote(IDInst) || quote(IDItem) || quote(Name) || "
                     "quote(Description) || quote(Address) FROM tbInstrumentsUser ORDER BY IDGrp, IDInst") +
               plant("SELECT quote(IDGrp) || quote(IDInst) || quote(IDPar) || quote(IDParGrp) || "
                     "quote(Value) || quote(State) FROM tbParametersUser ORDER BY IDGrp, IDInst, IDPar");
    }
    bool addGroup(const QString& IDGrp, const QString& Name, const QString& Description = {},
                  const QString& Phone = {})
    {
        return records.Add_Record_Db(1, IDGrp, {}, {}, Name, Description, Phone);
    }
    bool addInstrument(const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                       const QString& Name = "I", const QString& Address = "10")
    {
        return records.Add_Record_Db(2, IDGrp, IDInst, IDItem, Name, IDItem, Address);
    }
    // Expects that a work leaves the database, the bar and the pointer as they were, after one failure.
    void expectNothingDone(int number, const char* procedure, const std::function<bool()>& work)
    {
        const QStringList before = everything();
        QSignalSpy shown(&structure, &Structure::updateShown);
        EXPECT_FALSE(work());
        failures.expectOne(number, procedure);
        EXPECT_EQ(everything(), before);
        ASSERT_EQ(shown.count(), 2);
        EXPECT_EQ(shown[1][0], false);
        EXPECT_EQ(op.pointer, Pointer::Default);
        // The next job finds no transaction open.
        session.cnDatabase.Execute("PRAGMA query_only=OFF;");
        session.cnDatabase.BeginTrans();
        session.cnDatabase.RollbackTrans();
    }
    void makeReadOnly() { session.cnDatabase.Execute("PRAGMA query_only=ON;"); }
    void fillDisk() { session.cnDatabase.Execute("PRAGMA max_page_count=1;"); }

    Records records{session, op, structure};
};

// Numbers
// -----------------------------------------------------------------------------------------------------------

TEST_F(RecordsTest, TheNextNumberIsOneAboveTheHighest)
{
    EXPECT_EQ(records.IDMax_Grp(), 4);
    EXPECT_EQ(records.IDMax_Inst(1), 3);
    EXPECT_EQ(records.IDMax_Inst(2), 2);
}

TEST_F(RecordsTest, NumbersBeginAtOne)
{
    EXPECT_EQ(records.IDMax_Inst(3), 1);
    runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;");
    EXPECT_EQ(records.IDMax_Grp(), 1);
}

TEST_F(RecordsTest, AFreedNumberIsUsedAgainAtTheTopOnly)
{
    ASSERT_TRUE(records.Remove_Record_Db("1_3"));
    EXPECT_EQ(records.IDMax_Grp(), 3);
    ASSERT_TRUE(records.Remove_Record_Db("2_1_1"));
    EXPECT_EQ(records.IDMax_Inst(1), 3) << "a hole stays a hole";
}

TEST_F(RecordsTest, TheLastNumberOfAllHasNoNext)
{
    runOnPlant("INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (2147483647, 'LAST');");
    EXPECT_EQ(records.IDMax_Grp(), 0);
    failures.expectOne(platform::errors::kOverflow, "Module/IDMax_Grp");
}

TEST_F(RecordsTest, WithoutACompanyThereAreNoNumbers)
{
    database.Disconnect_Database();
    EXPECT_EQ(records.IDMax_Inst(1), 0);
    failures.expectOne(platform::errors::kObjectClosed, "Module/IDMax_Inst");
}

TEST_F(RecordsTest, LooksATypeUpFromTheFirstRowOn)
{
    struct Row
    {
        const char* tag;
        const char* mBaseAddr;
        const char* mAliveParAddr;
    };
    for (const Row& row :
         {Row{"KT200", "2A", "1"}, Row{"KT100", "10", "0"}, Row{"kt200", "2A", "1"}, Row{"ALIEN", "", ""},
          Row{"KT999", "", ""}, Row{"O'Hara", "", ""}, Row{"", "", ""}, Row{"KT100", "10", "0"}}) {
        const structure::TypeAddresses found = records.Search_Instrument(row.tag);
        EXPECT_EQ(found.mBaseAddr, row.mBaseAddr) << row.tag;
        EXPECT_EQ(found.mAliveParAddr, row.mAliveParAddr) << row.tag;
    }
}

// Adding
// ------------------------------------------------------------------------------------------------------------

TEST_F(RecordsTest, AGroupIsOneRow)
{
    EXPECT_TRUE(addGroup("4", "GRP4", "North", "0551"));
    EXPECT_TRUE(addGroup("5", "GRP5"));
    EXPECT_EQ(plant("SELECT IDGrp || Name || quote(Description) || quote(Phone) FROM tbGroupsUser "
                    "WHERE IDGrp > 3 ORDER BY IDGrp"),
              (QStringList{"4GRP4'North''0551'", "5GRP5NULLNULL"}));
}

TEST_F(RecordsTest, AnyNameIsStoredAsTyped)
{
    int IDGrp = 10;
    for (const QString& name :
         {QString("O'Hara"), QString("''"), QString("\"50 %_\\\""), QString("Холод"), QString("❄ 冷"),
          QString("a;DROP TABLE tbGroupsUser;--"), QString(10000, 'x'), QString("tab\tline\r\n")}) {
        EXPECT_TRUE(addGroup(QString::number(++IDGrp), name));
        EXPECT_EQ(plant("SELECT Name FROM tbGroupsUser WHERE IDGrp = " + QString::number(IDGrp)),
                  QStringList{name});
    }
}

TEST_F(RecordsTest, AnInstrumentComesWithItsParametersAtTheirDefaults)
{
    QSignalSpy progress(&structure, &Structure::updateProgress);
    EXPECT_TRUE(records.Add_Record_Db(2, "3", "1", "KT200", "INST31", "KT200", "2A"));
    EXPECT_EQ(plant("SELECT IDItem || '|' || Name || '|' || Description || '|' || Address FROM "
                    "tbInstrumentsUser WHERE IDGrp = 3"),
              QStringList{"KT200|INST31|KT200|2A"});
    EXPECT_EQ(plant("SELECT IDPar || '|' || IDParGrp || '|' || Value || '|' || State FROM tbParametersUser "
                    "WHERE IDGrp = 3 ORDER BY IDPar"),
              (QStringList{"P1101|G11|4.5|0", "P1102|G11|300|0", "P1103|G11|100|0", "P1201|G12|1|0"}));
    ASSERT_EQ(progress.count(), 2);
    EXPECT_EQ(progress[0][0], 50);
    EXPECT_EQ(progress[1][0], 100);
}

TEST_F(RecordsTest, EmptyTextsOfAnInstrumentAreNull)
{
    EXPECT_TRUE(records.Add_Record_Db(2, "3", "1", "KT100", "I", "", ""));
    EXPECT_EQ(plant("SELECT quote(Description) || quote(Address) FROM tbInstrumentsUser WHERE IDGrp = 3"),
              QStringList{"NULLNULL"});
}

TEST_F(RecordsTest, TheBarAndTheHourglassStandWhileItRuns)
{
    std::vector<Pointer> pointers;
    QObject::connect(&structure, &Structure::updateProgress, &structure,
                     [&] { pointers.push_back(op.pointer); });
    QSignalSpy shown(&structure, &Structure::updateShown);
    EXPECT_TRUE(addGroup("4", "GRP4"));
    EXPECT_EQ(pointers, std::vector{Pointer::Hourglass});
    EXPECT_EQ(op.pointer, Pointer::Default);
    ASSERT_EQ(shown.count(), 2);
    EXPECT_EQ(shown[0][0], true);
    EXPECT_EQ(shown[1][0], false);
}

// Removing
// ----------------------------------------------------------------------------------------------------------

TEST_F(RecordsTest, AGroupGoesWithAllBelowIt)
{
    QSignalSpy progress(&structure, &Structure::updateProgress);
    EXPECT_TRUE(records.Remove_Record_Db("1_1"));
    for (const char* table : {"tbGroupsUser", "tbInstrumentsUser", "tbParametersUser"})
        EXPECT_EQ(plant(QString("SELECT Count(*) FROM %1 WHERE IDGrp = 1").arg(table)), QStringList{"0"});
    EXPECT_EQ(plant("SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp"), (QStringList{"2", "3"}));
    ASSERT_EQ(progress.count(), 3);
    EXPECT_EQ(progress[0][0], 33);
    EXPECT_EQ(progress[1][0], 66);
    EXPECT_EQ(progress[2][0], 100);
}

TEST_F(RecordsTest, AnInstrumentGoesWithItsParameters)
{
    EXPECT_TRUE(records.Remove_Record_Db("2_1_2"));
    EXPECT_EQ(plant("SELECT IDInst FROM tbInstrumentsUser WHERE IDGrp = 1"), QStringList{"1"});
    EXPECT_EQ(plant("SELECT DISTINCT IDGrp || '.' || IDInst FROM tbParametersUser"),
              (QStringList{"1.1", "2.1"}));
}

TEST_F(RecordsTest, AnotherLevelRemovesNothingAndSucceeds)
{
    const QStringList before = everything();
    for (const char* key : {"Root", "3_1_1_G01", "4_1_1_G01_P0101"})
        EXPECT_TRUE(records.Remove_Record_Db(key)) << key;
    EXPECT_EQ(everything(), before);
}

// Failures
// ----------------------------------------------------------------------------------------------------------

TEST_F(RecordsTest, ACompanyMadeReadOnlyStaysAsItWas)
{
    makeReadOnly();
    expectNothingDone(platform::errors::kDatabase, "Module/Add_Record_Db",
                      [&] { return addGroup("4", "A"); });
    makeReadOnly();
    expectNothingDone(platform::errors::kDatabase, "Module/Add_Record_Db",
                      [&] { return addInstrument("3", "1", "KT100"); });
    makeReadOnly();
    expectNothingDone(platform::errors::kDatabase, "Module/Remove_Record_Db",
                      [&] { return records.Remove_Record_Db("1_1"); });
}

TEST_F(RecordsTest, AFullDiskLeavesNoHalfAnInstrument)
{
    runOnPlant("UPDATE tbParam SET mDftValue = printf('%.300000c', 'x') WHERE mID = 'P1201';");
    fillDisk();
    expectNothingDone(platform::errors::kDiskFull, "Module/Add_Record_Db",
                      [&] { return addInstrument("3", "1", "KT200"); });
    expectNothingDone(platform::errors::kDiskFull, "Module/Add_Record_Db",
                      [&] { return addGroup("4", QString(300000, 'x')); });
}

TEST_F(RecordsTest, ATypeThatLeftTheCatalogueMakesNoInstrument)
{
    expectNothingDone(platform::errors::kItemNotFound, "Module/Add_Record_Db",
                      [&] { return addInstrument("3", "1", "KT'999"); });
}

TEST_F(RecordsTest, ANumberThatIsTakenMakesNoSecondRow)
{
    expectNothingDone(platform::errors::kDatabase, "Module/Add_Record_Db",
                      [&] { return addGroup("1", "A"); });
    expectNothingDone(platform::errors::kDatabase, "Module/Add_Record_Db",
                      [&] { return addInstrument("1", "2", "KT100"); });
}

TEST_F(RecordsTest, AnInstrumentNeedsItsGroup)
{
    expectNothingDone(platform::errors::kDatabase, "Module/Add_Record_Db",
                      [&] { return addInstrument("99", "1", "KT100"); });
}

TEST_F(RecordsTest, ACompanyLockedByAnotherProgramStaysAsItWas)
{
    const QStringList before = everything();
    platform::Connection other;
    other.Open(session.ConnectionString);
    other.BeginTrans();
    EXPECT_FALSE(records.Remove_Record_Db("1_1"));
    failures.expectOne(platform::errors::kDatabase, "Module/Remove_Record_Db");
    other.RollbackTrans();
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(records.Remove_Record_Db("1_1"));
}

} // namespace
