#include "session/Helpers.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/VirtualClock.h"
#include "support/ApplicationFolder.h"

using namespace session;

namespace {

struct SqlRow
{
    QVariant value;
    const char* trim;
    const char* letters;
    const char* sql;
};

class ComposeSqlTextTest : public testing::TestWithParam<SqlRow>
{
};

TEST_P(ComposeSqlTextTest, TrimsTurnsDoublesAndWraps)
{
    const SqlRow& row = GetParam();
    EXPECT_EQ(Compose_SqlText(row.value, row.trim, row.letters).toStdString(), row.sql);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ComposeSqlTextTest,
    testing::Values(SqlRow{{}, "", "", "NULL"}, SqlRow{{}, "T", "U", "NULL"}, SqlRow{"", "", "", "''"},
                    SqlRow{"NULL", "", "", "'NULL'"}, SqlRow{"'", "", "", "''''"},
                    SqlRow{"l'Aquila d'oro", "", "", "'l''Aquila d''oro'"},
                    SqlRow{"a\"b\\", "", "", "'a\"b\\'"}, SqlRow{" a b ", "", "", "' a b '"},
                    SqlRow{" a b ", "L", "", "'a b '"}, SqlRow{" a b ", "r", "", "' a b'"},
                    SqlRow{" a b ", "t", "", "'a b'"}, SqlRow{"\t a \t", "T", "", "'\t a \t'"},
                    SqlRow{"   ", "T", "", "''"}, SqlRow{"aB è", "", "u", "'AB È'"},
                    SqlRow{"aB ЖЁ", "", "L", "'ab жё'"}, SqlRow{" Ab ", "X", "Y", "' Ab '"},
                    SqlRow{42, "", "", "'42'"},
                    SqlRow{"a; DROP TABLE t;--", "", "", "'a; DROP TABLE t;--'"}));

TEST(ComposeTextOrNullTest, AnEmptyTextIsStoredAsNull)
{
    EXPECT_EQ(composeTextOrNull(""), "NULL");
    EXPECT_EQ(composeTextOrNull(" "), "' '");
    EXPECT_EQ(composeTextOrNull("d'oro"), "'d''oro'");
}

TEST(ComposeSqlTextInStatementTest, EveryTextComesBackAsItWent)
{
    const support::ApplicationFolder folder;
    folder.write("Data/texts.mdb", "");
    platform::Connection connection;
    connection.Open(folder.file("Data/texts.mdb"));
    const QString nul = QString("a") + QChar(u'\0') + "'b";
    for (const QString& text : {QString("d'oro"), QString("''"), QString("%_;--"), QString("Жà€"), nul}) {
        platform::Recordset rows;
        rows.Open("SELECT " + Compose_SqlText(text) + " AS t", connection);
        EXPECT_EQ(rows.text("t"), text) << text.toStdString();
    }
}

TEST(NullToValueTest, GivesTheDefaultForNullAlone)
{
    EXPECT_EQ(Null_To_Value({}), "");
    EXPECT_EQ(Null_To_Value({}, "none"), "none");
    EXPECT_EQ(Null_To_Value("", "none"), "");
    EXPECT_EQ(Null_To_Value(0, "none"), "0");
}

TEST(ExistTest, TellsFilesFromFolders)
{
    const support::ApplicationFolder folder;
    folder.write("Data/empty", "");
    EXPECT_TRUE(Exist_File(folder.file("Data/empty")));
    EXPECT_FALSE(Exist_File(folder.file("Data")));
    EXPECT_FALSE(Exist_File(folder.file("none")));
    EXPECT_FALSE(Exist_File(""));
    EXPECT_TRUE(Exist_Path(folder.file("Data")));
    EXPECT_FALSE(Exist_Path(folder.file("Data/empty")));
    EXPECT_FALSE(Exist_Path(folder.file("none")));
    EXPECT_FALSE(Exist_Path(""));
}

TEST(WaitSecondsTest, ReturnsTheTimeThatPassed)
{
    platform::VirtualClock clock;
    EXPECT_DOUBLE_EQ(Wait_Seconds(clock, 2), 2.0);
    EXPECT_EQ(clock.elapsed(), 2000);
    EXPECT_DOUBLE_EQ(Wait_Seconds(clock, 0), 0.0);
}

} // namespace
