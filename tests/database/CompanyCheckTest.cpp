#include "database/CompanyCheck.h"

#include "database/SafekeepingFixture.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace support;

namespace {

class CompanyCheckTest : public SafekeepingFixture
{
protected:
    // What is said of the file; "" when it is a company.
    QString wordsFor(const QString& below)
    {
        try {
            database::checkCompany(file(below), "shown", texts);
        } catch (const platform::RuntimeError& error) {
            return error.description;
        }
        return {};
    }
};

TEST_F(CompanyCheckTest, ACompanyAndTheModelPass)
{
    EXPECT_EQ(wordsFor("Data/Plant.mdb"), "");
    EXPECT_EQ(wordsFor("Data Model/Calidora_Model_Instrument.mdb"), "");
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"}) << "a look leaves no trace";
}

TEST_F(CompanyCheckTest, EveryTableIsNeeded)
{
    const QStringList tables =
        column(plantFile(), "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'tb%'");
    EXPECT_EQ(tables.size(), 19);
    for (const QString& table : tables) {
        copy("Data/Plant.mdb", "Data/" + table);
        runSql(file("Data/" + table), "PRAGMA foreign_keys=OFF; DROP TABLE " + table + ";");
        EXPECT_EQ(wordsFor("Data/" + table), "The file shown is damaged or incomplete: " + table);
    }
}

TEST_F(CompanyCheckTest, WhatIsNoCompanyIsCalledSo)
{
    const QString kForeign = "The file shown is not a company file.";
    write("Data/short", "SQLite format 3");
    write("Data/letter", QByteArray("Dear Sirs, ").repeated(500));
    write("Data/head", QByteArray("SQLite format 3\0", 16) + QByteArray(8000, 'x'));
    runSql(file("Data/other"), "CREATE TABLE t (a);");
    for (const char* name : {"Data/short", "Data/letter", "Data/head", "Data/other"})
        EXPECT_EQ(wordsFor(name), kForeign) << name;
    EXPECT_EQ(wordsFor("Data/gone"), "The file shown does not exist.");
    EXPECT_EQ(wordsFor("Data"), "The file shown does not exist.");
}

TEST_F(CompanyCheckTest, ADamagedPageIsFound)
{
    runOnPlant("CREATE TABLE tbFiller (a); INSERT INTO tbFiller WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
               "SELECT i + 1 FROM n WHERE i < 500) SELECT hex(randomblob(400)) FROM n;");
    EXPECT_EQ(wordsFor("Data/Plant.mdb"), "");
    damage("Data/Plant.mdb");
    EXPECT_TRUE(wordsFor("Data/Plant.mdb").startsWith("The file shown is damaged or incomplete: "));
}

TEST_F(CompanyCheckTest, AFileThatAnotherProgramWritesIsCalledSo)
{
    SQLite::Database other(plantFile().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE;");
    EXPECT_EQ(wordsFor("Data/Plant.mdb"), "The file shown is in use by another program.");
    other.exec("ROLLBACK;");
    EXPECT_EQ(wordsFor("Data/Plant.mdb"), "");
}

TEST_F(CompanyCheckTest, SpeaksTheOperatorsLanguage)
{
    setLanguage("IT_Italiano_1000");
    EXPECT_EQ(wordsFor("Data/gone"), "Il file shown non esiste.");
    setLanguage("RU_Russian_6000");
    EXPECT_EQ(wordsFor("Data/gone"), "Файл shown не существует.");
}

} // namespace
