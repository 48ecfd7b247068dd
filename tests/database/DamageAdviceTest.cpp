#include "database/DamageAdvice.h"

#include "database/SafekeepingFixture.h"

#include <QDateTime>

using namespace support;

namespace {

class DamageAdviceTest : public SafekeepingFixture
{
protected:
    DamageAdviceTest()
    {
        database::installDamageAdvice(session, texts);
        QDir().mkpath(file("Data/Safety"));
    }

    void makeCopy(const QString& below, const QDateTime& time)
    {
        write(below, "copy");
        QFile copy(file(below));
        ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
        ASSERT_TRUE(copy.setFileTime(time, QFileDevice::FileModificationTime));
    }
    QString adviceAfter(int number)
    {
        platform::reportFailure({number, "It failed.", "Module/Any"});
        const auto reported = failures.take();
        EXPECT_EQ(reported.size(), 1u);
        EXPECT_EQ(reported[0].procedure, "Module/Any");
        return reported[0].description;
    }

    const QDateTime noon{QDate(2026, 3, 13), QTime(12, 0)};
};

TEST_F(DamageAdviceTest, ADamagedCompanyNamesItsNewestCopy)
{
    session.DbName = "Plant.mdb";
    EXPECT_EQ(adviceAfter(platform::errors::kDamaged), "It failed.");
    const std::pair<const char*, int> copies[] = {{"Data/Safety/Plant_20260312120000.bak", 0},
                                                  {"Data/Safety/Plant_20260313120000.bak", 60},
                                                  {"Backup/Plant.bak", 120},
                                                  {"Data/Plant_replaced_20260101000000.bak", 180}};
    for (const auto& [name, later] : copies) {
        makeCopy(name, noon.addSecs(later));
        EXPECT_EQ(adviceAfter(platform::errors::kDamaged),
                  QString("It failed.\r\nThe newest copy of this company is %1, of 13/03/2026 12:0%2. "
                          "To go back to it: Utility > Database > Restore.")
                      .arg(file(name))
                      .arg(later / 60));
    }
    makeCopy("Backup/Other.bak", noon.addDays(1));
    makeCopy("Data/Safety/Other_20260313120000.bak", noon.addDays(1));
    EXPECT_TRUE(adviceAfter(platform::errors::kDamaged).contains("Plant_replaced_"));
}

TEST_F(DamageAdviceTest, OtherFailuresAndNoCompanyAreLeftAlone)
{
    session.DbName = "Plant.mdb";
    EXPECT_EQ(adviceAfter(platform::errors::kDatabase), "It failed.");
    session.DbName.clear();
    EXPECT_EQ(adviceAfter(platform::errors::kDamaged), "It failed.");
}

TEST_F(DamageAdviceTest, SaysSoInEveryLanguage)
{
    session.DbName = "Plant.mdb";
    makeCopy("Backup/Plant.bak", noon);
    setLanguage("IT_Italiano_1000");
    EXPECT_TRUE(
        adviceAfter(platform::errors::kDamaged).endsWith("Per ritornarvi: Utilità > Database > Ripristina."));
    setLanguage("RU_Russian_6000");
    EXPECT_TRUE(adviceAfter(platform::errors::kDamaged).contains("Сервис > База данных > Восстановление"));
}

TEST_F(DamageAdviceTest, AStatementThatMeetsTheDamageSaysIt)
{
    makeCopy("Backup/Plant.bak", noon);
    runOnPlant("CREATE TABLE tbFiller (a); INSERT INTO tbFiller WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
               "SELECT i + 1 FROM n WHERE i < 500) SELECT hex(randomblob(400)) FROM n;");
    damage("Data/Plant.mdb");
    ASSERT_TRUE(connectPlant()) << "it opens";
    platform::guarded("Module/Any", [this] {
        platform::Recordset records;
        records.Open("SELECT Count(a) FROM tbFiller", session.cnDatabase);
    });
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_TRUE(reported[0].description.contains("is damaged")) << reported[0].description.toStdString();
    EXPECT_TRUE(reported[0].description.contains(file("Backup/Plant.bak")));
}

TEST_F(DamageAdviceTest, AFileThatIsNoLongerADatabaseSaysItAtTheConnect)
{
    makeCopy("Backup/Plant.bak", noon);
    write("Data/Plant.mdb", QByteArray("overwritten").repeated(500));
    EXPECT_FALSE(connectPlant());
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_TRUE(reported[0].description.contains(file("Backup/Plant.bak")));
}

} // namespace
