#include "catalogue/tool/ModelWriter.h"
#include "tests/catalogue/Published.h"

#include <QFileInfo>

namespace catalogue {
namespace {

using testing::column;
using testing::count;
using testing::opened;
using testing::published;

QStringList dumpOf(SQLite::Database& database)
{
    QStringList rows;
    for (const QString& table :
         column(database, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")) {
        SQLite::Statement statement(database, "SELECT * FROM " + table.toStdString());
        while (statement.executeStep()) {
            QString row = table;
            for (int index = 0; index < statement.getColumnCount(); ++index)
                row += '|' + QString::fromStdString(statement.getColumn(index).getString());
            rows << row;
        }
    }
    return rows;
}

TEST(ModelWriter, givesTheSameRowsTwice)
{
    const QString again = published().folder.filePath("again.mdb");
    writeModel(readCatalogue(testing::kFolder), testing::kFolder + "/schema.sql", again);
    SQLite::Database first = opened(published().model);
    SQLite::Database second = opened(again);
    EXPECT_GT(dumpOf(first).size(), 5000);
    EXPECT_EQ(dumpOf(first), dumpOf(second));
}

TEST(ModelWriter, leavesTheUserTablesEmpty)
{
    SQLite::Database model = opened(published().model);
    for (const char* table : {"tbGroupsUser", "tbInstrumentsUser", "tbParametersUser", "tbParUser_tmp",
                              "tbEvent", "tbUsers", "tbCompanySettings"})
        EXPECT_EQ(count(model, QString("SELECT Count(*) FROM %1").arg(table)), 0) << table;
    EXPECT_EQ(column(model, "SELECT Version FROM tbInfoDatabase"),
              QStringList(published().catalogue.version));
    EXPECT_EQ(column(model, "PRAGMA integrity_check"), QStringList("ok"));
    EXPECT_EQ(column(model, "PRAGMA journal_mode"), QStringList("delete"));
}

struct Shown
{
    const char* what;
    const char* all;        // ids of what is shown
    const char* inLanguage; // %1: a language; ids with a text
};

// A row without a text in the operator's language is not seen at all.
TEST(ModelWriter, givesEverythingShownATextInEveryLanguage)
{
    const std::vector<Shown> rows{
        {"types", "SELECT mTag FROM tbInstrument ORDER BY 1",
         "SELECT mID FROM tbInstrumentLanguage WHERE mKeyLang = '%1' AND mDesc <> '' ORDER BY 1"},
        {"groups", "SELECT mID FROM tbParamGroup ORDER BY 1",
         "SELECT mID FROM tbParamGroupLanguage WHERE mKeyLang = '%1' AND mDesc <> '' ORDER BY 1"},
        {"parameters", "SELECT mID FROM tbParam ORDER BY 1",
         "SELECT mID FROM tbParamLanguage WHERE mKeyLang = '%1' AND mDesc <> '' ORDER BY 1"},
        {"choices", "SELECT mID FROM tbParamEnum ORDER BY 1",
         "SELECT mID FROM tbParamEnumLanguage WHERE mKeyLang = '%1' AND mDesc <> '' ORDER BY 1"},
        {"places", "SELECT DISTINCT mIDCopy FROM tbParam WHERE mIDCopy IS NOT NULL ORDER BY 1",
         "SELECT mID FROM tbParamCopyLanguage WHERE mKeyLang = '%1' AND mDesc <> '' ORDER BY 1"}};
    SQLite::Database model = opened(published().model);
    for (const Shown& row : rows) {
        const QStringList all = column(model, row.all);
        EXPECT_FALSE(all.isEmpty()) << row.what;
        for (const QString& language : kLanguages)
            EXPECT_EQ(column(model, QString(row.inLanguage).arg(language)), all)
                << row.what << language.toStdString();
    }
}

TEST(ModelWriter, describesABlockOnceForItsWholeFamily)
{
    SQLite::Database model = opened(published().model);
    EXPECT_EQ(count(model,
                    "SELECT Count(*) FROM (SELECT substr(mID, 1, 5), mKeyLang FROM tbParamCopyLanguage "
                    "GROUP BY 1, 2 HAVING Count(DISTINCT mDesc) > 1)"),
              0);
    EXPECT_EQ(
        column(model,
               "SELECT DISTINCT substr(mID, 4, 2) FROM tbParamCopyLanguage WHERE mID LIKE 'CP.%' ORDER BY 1")
            .size(),
        8);
}

TEST(ModelWriter, joinsEveryParameterToItsKeyBankAndGroup)
{
    SQLite::Database model = opened(published().model);
    EXPECT_EQ(
        count(model,
              "SELECT Count(*) FROM ((tbParam INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID) "
              "INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID) INNER JOIN (tbParamGroup INNER JOIN "
              "tbInstrument ON tbParamGroup.mKeyInst = tbInstrument.mID) ON tbParam.mKeyParGroup = "
              "tbParamGroup.mID"),
        count(model, "SELECT Count(*) FROM tbParam"));
    EXPECT_EQ(count(model, "SELECT Count(*) FROM tbParam WHERE mMemBank = '1'"),
              count(model, "SELECT Count(*) FROM tbParam WHERE mMemBank = 1"));
    EXPECT_EQ(
        count(model,
              "SELECT Count(*) FROM tbParam INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID "
              "WHERE tbParamType.mTag = 'ENUM' AND tbParam.mID NOT IN (SELECT mKeyParam FROM tbParamEnum)"),
        0);
}

TEST(ModelWriter, writesCommandsAsDecimalTexts)
{
    SQLite::Database model = opened(published().model);
    for (const char* sql : {"SELECT mReadCmd FROM tbInstMem", "SELECT mWriteCmd FROM tbInstMem",
                            "SELECT DISTINCT mWriteCmd FROM tbParam"})
        for (const QString& command : column(model, sql)) {
            bool isNumber = false;
            const int number = command.toInt(&isNumber);
            EXPECT_TRUE(isNumber && number >= 0 && number <= 255) << command.toStdString();
        }
    EXPECT_GT(count(model, "SELECT Count(*) FROM tbParam WHERE mWriteCmd = '0'"), 0);
}

// A new instrument shows "--" for what nobody has read.
TEST(ModelWriter, inventsNoReading)
{
    SQLite::Database model = opened(published().model);
    EXPECT_GT(count(model, "SELECT Count(*) FROM tbParam WHERE mEnable = 0"), 500);
    EXPECT_EQ(count(model, "SELECT Count(*) FROM tbParam WHERE mEnable = 0 AND mDftValue IS NOT NULL"), 0);
    EXPECT_GT(count(model, "SELECT Count(*) FROM tbParam WHERE mEnable <> 0 AND mDftValue IS NOT NULL"), 900);
    EXPECT_EQ(column(model, "SELECT mDftValue FROM tbParam WHERE mID = 'P020106'"), QStringList("21:00:00"));
}

TEST(ModelWriter, groupsNoDigits)
{
    SQLite::Database model = opened(published().model);
    EXPECT_EQ(column(model, "SELECT DISTINCT mDP FROM tbParam WHERE mDP LIKE '%,%' OR mDP LIKE '%#%'"),
              QStringList());
}

TEST(ModelWriter, leavesTheTargetWhenItFails)
{
    testing::SourceFolder folder;
    folder.write("model.mdb", "what stood here");
    folder.write("schema.sql", "CREATE TABLE tbInfoDatabase (Wrong);");
    EXPECT_ANY_THROW(writeModel(published().catalogue, folder.file("schema.sql"), folder.file("model.mdb")));
    QFile file(folder.file("model.mdb"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("what stood here"));
    EXPECT_FALSE(QFileInfo::exists(folder.file("model.mdb.new")));
}

TEST(ModelWriter, takesThePlaceOfAnOldModelAndItsJournal)
{
    testing::SourceFolder folder;
    folder.write("model.mdb", "an old one");
    folder.write("model.mdb-journal", "its journal");
    writeModel(published().catalogue, testing::kFolder + "/schema.sql", folder.file("model.mdb"));
    EXPECT_FALSE(QFileInfo::exists(folder.file("model.mdb-journal")));
    SQLite::Database model = opened(folder.file("model.mdb"));
    EXPECT_EQ(count(model, "SELECT Count(*) FROM tbInfoDatabase"), 1);
}

TEST(ModelWriter, refusesAMissingSchema)
{
    testing::SourceFolder folder;
    EXPECT_THROW(writeModel(published().catalogue, folder.file("none.sql"), folder.file("model.mdb")),
                 Refused);
}

} // namespace
} // namespace catalogue
