#include "structure/PlantSearch.h"

#include "support/CompanyFixture.h"

#include <QStringBuilder>

using structure::Findings;
using structure::findInPlant;

namespace {

class PlantSearchTest : public support::CompanyFixture
{
protected:
    Findings find(const QString& text)
    {
        const structure::StopFlag stop = false;
        return findInPlant(plantFile(), session.Language.Code, text, stop);
    }
    QStringList keysOf(const QString& text)
    {
        QStringList keys;
        const Findings findings = find(text);
        EXPECT_EQ(findings.failure, "");
        for (const structure::ListItem& item : findings.items)
            keys << item.key;
        return keys;
    }
    // "text|value|path|icon" of the only finding.
    QString only(const QString& text)
    {
        const Findings findings = find(text);
        if (findings.items.size() != 1)
            return QString("%1 found").arg(findings.items.size());
        const structure::ListItem& item = findings.items.front();
        return QString("%1|%2|%3|%4").arg(item.text, item.subtext, item.detail).arg(item.icon);
    }
};

TEST_F(PlantSearchTest, FindsByEveryFieldAndShowsWhatHeldTheText)
{
    const std::pair<const char*, const char*> rows[] = {
        {"0551234", "GRP1|0551234567|ZEL Bus|2"},              // phone
        {"market \"n", "GRP1|Market \"North\"|ZEL Bus|2"},     // a group's description
        {"inst11", "INST11|00|GRP1|3"},                        // an instrument's name
        {"2a", "ALPHA|2A|GRP1|3"},                             // address
        {"SECOND", "ALPHA|Second|GRP1|3"},                     // an instrument's description
        {"kt100", "INST11|KT100|GRP1|3"},                      // type tag
        {"EN RUN", "EN RUN|01:02:00|GRP1\\INST11\\Times|5"},   // a parameter's name
        {"full", "EN FAN|Full|GRP1\\INST11\\States|5"},        // a choice as it is shown
        {"room 1", "EN TXT|ROOM 1|GRP1\\INST11\\States|5"},    // a text
        {"1,234", "EN PR2|1,234|GRP1\\INST11\\Measures|5"},    // a number as it is shown
        {"1234.", "0 found"},                                  // nowhere
        {"12.3 °C", "EN T1|12.3 °C|GRP1\\INST11\\Measures|5"}, // with its unit
        {"--", "EN T2|--|GRP1\\INST11\\Measures|5"},           // a value that isn't known
    };
    for (const auto& [text, found] : rows)
        EXPECT_EQ(only(text), found) << text;
}

TEST_F(PlantSearchTest, FindsAParameterByItsTagAlone)
{
    runOnPlant("UPDATE tbParam SET mTag = 'ZZTOP' WHERE mID = 'P0302';");
    EXPECT_EQ(keysOf("zzt"), QStringList{"4_1_1_G03_P0302"});
}

TEST_F(PlantSearchTest, FindsTheStoredNumberThatTheMaskRounds)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '12.3456' WHERE IDPar = 'P0101';");
    EXPECT_EQ(only("12.3456"), "EN T1|12.3 °C|GRP1\\INST11\\Measures|5");
}

TEST_F(PlantSearchTest, GroupsComeFirstThenInstrumentsThenParameters)
{
    EXPECT_EQ(keysOf("alpha"), (QStringList{"1_2", "2_1_2"}));
    EXPECT_EQ(keysOf("en set"), (QStringList{"4_1_2_G11_P1101", "4_2_1_G11_P1101"}));
}

TEST_F(PlantSearchTest, EveryCharacterStandsForItself)
{
    runOnPlant("UPDATE tbInstrumentsUser SET Description = '100%_sure' WHERE IDGrp = 1 AND IDInst = 1;"
               "UPDATE tbInstrumentsUser SET Description = 'back\\slash [x]*?' WHERE IDGrp = 2;");
    EXPECT_EQ(keysOf("O'H"), QStringList{"1_3"});
    EXPECT_EQ(keysOf("''"), QStringList());
    EXPECT_EQ(keysOf("0%_"), QStringList{"2_1_1"});
    EXPECT_EQ(keysOf("_sure"), QStringList{"2_1_1"});
    EXPECT_EQ(keysOf("\\sl"), QStringList{"2_2_1"});
    EXPECT_EQ(keysOf("[x]*"), QStringList{"2_2_1"});
    EXPECT_EQ(keysOf("'; DROP TABLE tbGroupsUser; --"), QStringList());
    EXPECT_EQ(keysOf(QString(10000, 'x')), QStringList());
}

TEST_F(PlantSearchTest, KnowsTheCasesOfCyrillic)
{
    setLanguage("RU_Russian_6000");
    runOnPlant("UPDATE tbInstrumentsUser SET Name = 'КАМЕРА ❄' WHERE IDGrp = 1 AND IDInst = 1;");
    EXPECT_EQ(keysOf("камера"), QStringList{"2_1_1"});
    EXPECT_EQ(keysOf("❄"), QStringList{"2_1_1"});
    EXPECT_EQ(keysOf("полный"), QStringList{"4_1_1_G02_P0202"}) << "a choice in the session's language";
    EXPECT_EQ(keysOf("ру FAN"), QStringList{"4_1_1_G02_P0202"});
}

TEST_F(PlantSearchTest, WhatTheTreeDoesNotShowIsNotFound)
{
    setLanguage("RU_Russian_6000");
    EXPECT_EQ(keysOf("DIF"), QStringList()) << "the parameter has no Russian description";
    EXPECT_EQ(keysOf("CNT"), QStringList()) << "its parameter group has none";
}

TEST_F(PlantSearchTest, AnEmptyTextFindsNothing)
{
    EXPECT_EQ(keysOf(""), QStringList());
}

TEST_F(PlantSearchTest, ListsSoManyOfAKindAndCountsTheRest)
{
    QString sql = "BEGIN;";
    for (int i = 0; i < 250; ++i)
        sql += QString("INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (%1, 'CROWD');").arg(100 + i);
    runOnPlant(sql + "COMMIT;");
    const Findings findings = find("crowd");
    EXPECT_EQ(int(findings.items.size()), structure::kMostOfAKind);
    EXPECT_EQ(findings.more, 250 - structure::kMostOfAKind);
}

TEST_F(PlantSearchTest, InstrumentsAndParametersAreListedUpToTheSameNumber)
{
    QString sql = "BEGIN;";
    for (int i = 10; i < 210; ++i)
        sql += QString("INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name) VALUES (3, %1, 'KT100', "
                       "'CROWD');INSERT INTO tbParametersUser VALUES (3, %1, 'P0204', 'G02', 'MANY', 0);")
                   .arg(i);
    runOnPlant(sql + "COMMIT;");
    EXPECT_EQ(int(find("crowd").items.size()), 200);
    EXPECT_EQ(find("crowd").more, 0);
    EXPECT_EQ(int(find("many").items.size()), 200);
    EXPECT_EQ(find("many").more, 0);
    runOnPlant("INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name) VALUES (2, 10, 'KT100', 'CROWD');"
               "INSERT INTO tbParametersUser VALUES (2, 10, 'P0204', 'G02', 'MANY', 0);");
    EXPECT_EQ(int(find("crowd").items.size()), 200);
    EXPECT_EQ(find("crowd").more, 1);
    EXPECT_EQ(find("crowd").items[0].key, "2_2_10") << "ALPHA stands before O'Hara";
    EXPECT_EQ(int(find("many").items.size()), 200);
    EXPECT_EQ(find("many").more, 1);
    EXPECT_EQ(find("many").items[0].key, "4_2_10_G02_P0204");
    EXPECT_EQ(find("many").items[0].detail, "ALPHA\\CROWD\\States");
}

TEST_F(PlantSearchTest, FindingsStandInTheOrderOfTheTree)
{
    runOnPlant(
        "UPDATE tbGroupsUser SET Name = 'xb' WHERE IDGrp = 1; UPDATE tbGroupsUser SET Name = 'XA' WHERE "
        "IDGrp = 3; UPDATE tbGroupsUser SET Name = 'XC' WHERE IDGrp = 2;"
        "UPDATE tbInstrumentsUser SET Name = 'QZ' WHERE IDGrp = 1 AND IDInst = 1;"
        "UPDATE tbInstrumentsUser SET Name = 'qa' WHERE IDGrp = 1 AND IDInst = 2;"
        "UPDATE tbInstrumentsUser SET Name = 'QA' WHERE IDGrp = 2;");
    EXPECT_EQ(keysOf("x"), (QStringList{"1_3", "1_1", "1_2", "4_1_1_G02_P0204"}));
    EXPECT_EQ(keysOf("q"), (QStringList{"2_1_2", "2_1_1", "2_2_1"}));
}

TEST_F(PlantSearchTest, ANameOrTheFieldThatIsShownAnywayTellsNothingElse)
{
    runOnPlant(
        "UPDATE tbGroupsUser SET Name = 'QQ', Phone = '77', Description = 'QQ 77' WHERE IDGrp = 3;"
        "UPDATE tbInstrumentsUser SET Name = 'WW', Address = '55', Description = 'WW 55' WHERE IDGrp = 2;");
    EXPECT_EQ(only("qq"), "QQ|77|ZEL Bus|2") << "the name holds it";
    EXPECT_EQ(only("77"), "QQ|77|ZEL Bus|2") << "the phone holds it";
    EXPECT_EQ(only("qq 7"), "QQ|QQ 77|ZEL Bus|2") << "only the description does";
    EXPECT_EQ(only("ww"), "WW|55|ALPHA|3");
    EXPECT_EQ(only("ww 5"), "WW|WW 55|ALPHA|3");
}

TEST_F(PlantSearchTest, AStateIsAPicture)
{
    EXPECT_EQ(only("en mod"), "EN MOD|On|GRP1\\INST11\\States|6");
    EXPECT_EQ(only("en lgt"), "EN LGT|Dark|GRP1\\INST11\\States|7");
}

TEST_F(PlantSearchTest, GoesThroughMoreGroupsThanASliceHolds)
{
    QString sql = "BEGIN;";
    for (int i = 100; i < 150; ++i) {
        sql += QString(
                   "INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (%1, 'G');"
                   "INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name) VALUES (%1, 1, 'KT100', 'I');"
                   "INSERT INTO tbParametersUser VALUES (%1, 1, 'P0204', 'G02', 'SLICED', 0);")
                   .arg(i);
    }
    runOnPlant(sql + "COMMIT;");
    EXPECT_EQ(keysOf("sliced").size(), 50);
}

TEST_F(PlantSearchTest, EndsWhenNobodyWaits)
{
    const structure::StopFlag stop = true;
    EXPECT_TRUE(findInPlant(plantFile(), "EN", "EN T1", stop).items.empty());
}

TEST_F(PlantSearchTest, LeavesTheFileFreeForAWriterAndSeesWhatItWrote)
{
    ASSERT_TRUE(connectPlant());
    session.cnDatabase.Execute("UPDATE tbParametersUser SET Value = 'QUIETROOM' WHERE IDPar = 'P0204';");
    EXPECT_EQ(keysOf("QUIETROOM").size(), 1);
    session.cnDatabase.Execute("UPDATE tbParametersUser SET Value = 'NOISYROOM' WHERE IDPar = 'P0204';");
    EXPECT_EQ(keysOf("QUIETROOM").size(), 0);
    EXPECT_EQ(keysOf("NOISYROOM").size(), 1);
}

TEST_F(PlantSearchTest, TellsWhatIsWrongWithTheFile)
{
    const structure::StopFlag stop = false;
    const Findings missing = findInPlant(file("Data/None.mdb"), "EN", "x", stop);
    EXPECT_TRUE(missing.failure.contains("None.mdb")) << qPrintable(missing.failure);
    EXPECT_FALSE(QFile::exists(file("Data/None.mdb"))) << "a search makes no file";
    QFile rubbish(file("Data/Rubbish.mdb"));
    ASSERT_TRUE(rubbish.open(QIODevice::WriteOnly));
    rubbish.write(QByteArray(4096, 'x'));
    rubbish.close();
    EXPECT_NE(findInPlant(rubbish.fileName(), "EN", "x", stop).failure, "");
}

} // namespace
