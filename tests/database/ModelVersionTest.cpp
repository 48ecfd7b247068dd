#include "database/ModelVersion.h"

#include "support/CompanyFixture.h"

#include <QFile>

using namespace support;
using database::newerModel;

namespace {

class ModelVersion : public CompanyFixture
{
protected:
    void install(const QString& version)
    {
        runSql(modelFile(), QStringLiteral("UPDATE tbInfoDatabase SET Version = %1").arg(version));
    }
    void companyIsOf(const QString& version)
    {
        runOnPlant(QStringLiteral("UPDATE tbInfoDatabase SET Version = %1").arg(version));
        ASSERT_TRUE(connectPlant());
    }
};

TEST_F(ModelVersion, ANewerOneIsTold)
{
    companyIsOf("'1.9'");
    install("'1.10'");
    EXPECT_EQ(newerModel(session), "1.10");
}

TEST_F(ModelVersion, TheSameOneIsNot)
{
    companyIsOf("'1.10'");
    install("'1.10'");
    EXPECT_EQ(newerModel(session), "");
}

TEST_F(ModelVersion, AnOlderOneIsNot)
{
    companyIsOf("'1.10'");
    install("'1.9'");
    EXPECT_EQ(newerModel(session), "");
}

TEST_F(ModelVersion, WithoutACompanyNothingIsTold)
{
    companyIsOf("'1.0'");
    install("'2.0'");
    database.Disconnect_Database();
    session.DbVersion = "1.0";
    EXPECT_EQ(newerModel(session), "");
}

TEST_F(ModelVersion, ACompanyThatDoesNotTellItsVersionIsLeftAlone)
{
    companyIsOf("NULL");
    install("'2.0'");
    EXPECT_EQ(newerModel(session), "");
}

TEST_F(ModelVersion, AModelThatDoesNotTellItsVersionIsLeftAlone)
{
    companyIsOf("'1.0'");
    install("NULL");
    EXPECT_EQ(newerModel(session), "");
    runSql(modelFile(), "DELETE FROM tbInfoDatabase");
    EXPECT_EQ(newerModel(session), "");
    runSql(modelFile(), "DROP TABLE tbInfoDatabase");
    EXPECT_EQ(newerModel(session), "");
}

TEST_F(ModelVersion, AModelThatIsMissingIsNotMade)
{
    companyIsOf("'1.0'");
    ASSERT_TRUE(QFile::remove(modelFile()));
    EXPECT_EQ(newerModel(session), "");
    EXPECT_FALSE(QFile::exists(modelFile()));
}

} // namespace
