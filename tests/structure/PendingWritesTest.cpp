#include "structure/PendingWrites.h"

#include "support/CompanyFixture.h"

namespace {

class PendingWritesTest : public support::CompanyFixture
{
protected:
    QStringList rows()
    {
        const structure::StopFlag stop = false;
        const structure::PendingWrites pending =
            structure::readPendingWrites(plantFile(), session.Language.Code, stop);
        EXPECT_EQ(pending.failure, "");
        QStringList rows;
        for (const structure::ListItem& item : pending.items)
            rows << QString("%1|%2|%3|%4|%5")
                        .arg(item.key, item.text, item.subtext, item.detail)
                        .arg(item.icon);
        return rows;
    }
};

TEST_F(PendingWritesTest, ListsWhatIsChangedByGroupAndInstrument)
{
    EXPECT_EQ(rows(), (QStringList{
                          "4_2_1_G11_P1101|EN SET|4.5 °C|ALPHA\\inst21\\Settings|6",
                          "4_1_2_G11_P1101|EN SET|4.5 °C|GRP1\\ALPHA\\Settings|6",
                          "4_1_1_G02_P0201|EN MOD|On|GRP1\\INST11\\States|6",
                      }));
}

TEST_F(PendingWritesTest, LeavesOutWhatIsEqualAndWhatWasAdded)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0 WHERE State = 1;");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(PendingWritesTest, ShowsAValueThatIsNotKnownAsTheListDoes)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0; UPDATE tbParametersUser SET State = 1 WHERE IDPar = "
               "'P0102';");
    EXPECT_EQ(rows(), QStringList{"4_1_1_G01_P0102|EN T2|--|GRP1\\INST11\\Measures|6"});
}

TEST_F(PendingWritesTest, SpeaksTheSessionsLanguage)
{
    setLanguage("RU_Russian_6000");
    runOnPlant("UPDATE tbParametersUser SET State = 0 WHERE IDPar <> 'P0201';");
    EXPECT_EQ(rows(), QStringList{"4_1_1_G02_P0201|РУ MOD|Вкл|GRP1\\INST11\\Состояния|6"});
}

TEST_F(PendingWritesTest, ShowsAValueBeyondItsMeaningAsItStands)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;"
               "UPDATE tbParametersUser SET State = 1, Value = 'rubbish' WHERE IDPar = 'P0201';");
    EXPECT_EQ(rows(), QStringList{"4_1_1_G02_P0201|EN MOD|rubbish|GRP1\\INST11\\States|6"});
}

// What the names leave open stands in the order of the ids, so that twins don't mix.
TEST_F(PendingWritesTest, TwinsStandOneBehindTheOther)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;"
               "UPDATE tbGroupsUser SET Name = 'TWIN' WHERE IDGrp IN (1, 2);"
               "UPDATE tbInstrumentsUser SET Name = 'SAME';"
               "UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0204', 'P0101', 'P0301', 'P1101');"
               "INSERT INTO tbParametersUser VALUES (1, 2, 'P0204', 'G02', 'X', 1);");
    QStringList keys;
    for (const QString& row : rows())
        keys << row.section('|', 0, 0);
    EXPECT_EQ(keys, (QStringList{"4_1_1_G01_P0101", "4_1_1_G02_P0204", "4_1_1_G03_P0301", "4_1_2_G02_P0204",
                                 "4_1_2_G11_P1101", "4_2_1_G11_P1101"}));
}

TEST_F(PendingWritesTest, NamesStandInTheOrderOfTheTree)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;"
               "UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P1101' OR IDPar = 'P0101';"
               "UPDATE tbGroupsUser SET Name = 'б' WHERE IDGrp = 1; UPDATE tbGroupsUser SET Name = 'В' WHERE "
               "IDGrp = 2; UPDATE tbInstrumentsUser SET Name = 'z' WHERE IDGrp = 1 AND IDInst = 1;"
               "UPDATE tbInstrumentsUser SET Name = 'A' WHERE IDGrp = 1 AND IDInst = 2;");
    QStringList keys;
    for (const QString& row : rows())
        keys << row.section('|', 0, 0);
    EXPECT_EQ(keys, (QStringList{"4_2_1_G11_P1101", "4_1_2_G11_P1101", "4_1_1_G01_P0101"}));
}

// The ids of a parameter group sort before those of its parameters.
TEST_F(PendingWritesTest, AParameterGroupStaysTogether)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;"
               "UPDATE tbParametersUser SET State = 1, IDParGrp = 'G03' WHERE IDPar = 'P0101';"
               "UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0204';");
    QStringList keys;
    for (const QString& row : rows())
        keys << row.section('|', 0, 0);
    EXPECT_EQ(keys, (QStringList{"4_1_1_G02_P0204", "4_1_1_G03_P0101"}));
}

TEST_F(PendingWritesTest, WhatTheTreeDoesNotShowIsLeftOut)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;"
               "UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0101', 'P0204', 'P0301');"
               "DELETE FROM tbParamLanguage WHERE mID = 'P0101';"
               "DELETE FROM tbParamGroupLanguage WHERE mID = 'G02';");
    EXPECT_EQ(rows(), QStringList{"4_1_1_G03_P0301|EN DEF|02|GRP1\\INST11\\Times|6"});
}

TEST_F(PendingWritesTest, NoGroupOfManyIsLeftOutOrListedTwice)
{
    // More than are read in one go, with gaps between their numbers.
    runOnPlant(R"(
        DELETE FROM tbParametersUser WHERE State = 1;
        INSERT INTO tbGroupsUser WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 3 FROM n WHERE i < 600)
          SELECT i, Printf('G%04d', i), NULL, NULL FROM n;
        INSERT INTO tbInstrumentsUser SELECT IDGrp, 1, 'KT100', 'ONE', NULL, NULL FROM tbGroupsUser WHERE IDGrp >= 10;
        INSERT INTO tbParametersUser SELECT IDGrp, 1, 'P0201', 'G02', '1', 1 FROM tbGroupsUser WHERE IDGrp >= 10;)");
    QStringList expected;
    for (const QString& group :
         support::column(plantFile(), "SELECT IDGrp FROM tbGroupsUser WHERE IDGrp >= 10 ORDER BY IDGrp"))
        expected << "4_" + group + "_1_G02_P0201";
    QStringList found;
    for (const QString& row : rows())
        found << row.section('|', 0, 0);
    EXPECT_EQ(found.size(), 198);
    EXPECT_EQ(found, expected);
}

TEST_F(PendingWritesTest, TellsWhatIsWrongWithTheFile)
{
    const structure::StopFlag stop = false;
    const auto pending = structure::readPendingWrites(file("Data/None.mdb"), "EN", stop);
    EXPECT_NE(pending.failure, "");
    EXPECT_TRUE(pending.items.empty());
}

} // namespace
