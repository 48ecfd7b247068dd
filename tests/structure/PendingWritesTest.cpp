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

TEST_F(PendingWritesTest, TellsWhatIsWrongWithTheFile)
{
    const structure::StopFlag stop = false;
    const auto pending = structure::readPendingWrites(file("Data/None.mdb"), "EN", stop);
    EXPECT_NE(pending.failure, "");
    EXPECT_TRUE(pending.items.empty());
}

} // namespace
