#include "platform/Recordset.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "support/CompanyFixture.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

class RecordsetTest : public testing::Test
{
protected:
    RecordsetTest()
    {
        support::runSql(
            folder_.filePath("file.mdb"),
            "CREATE TABLE tbRoom (ID INTEGER, Name TEXT COLLATE NOCASE, Size REAL, Note TEXT);"
            "INSERT INTO tbRoom VALUES (1, 'Alpha', 1.5, NULL), (2, 'beta', 2, 'x'), (3, 'ALPHA', 3, ''),"
            " (4, 'O''Hara', NULL, 'y'), (5, 'Ж1', -7, 'z');"
            "CREATE TABLE tbDoor (ID INTEGER, Room INTEGER); INSERT INTO tbDoor VALUES (10, 2), (11, 4);");
        connection.Open(folder_.filePath("file.mdb"));
    }

    void open(const QString& sql = "SELECT * FROM tbRoom ORDER BY ID") { rows.Open(sql, connection); }
    int errorOf(const std::function<void()>& work)
    {
        try {
            work();
        } catch (const RuntimeError& error) {
            return error.number;
        }
        return 0;
    }

    Connection connection;
    Recordset rows;

private:
    QTemporaryDir folder_;
};

TEST_F(RecordsetTest, IsWalkedFromEndToEnd)
{
    open();
    EXPECT_EQ(rows.RecordCount(), 5);
    QList<int> ids;
    for (; !rows.Eof(); rows.MoveNext())
        ids << rows.number("ID");
    EXPECT_EQ(ids, (QList<int>{1, 2, 3, 4, 5}));
    EXPECT_FALSE(rows.Bof());
    for (rows.MovePrevious(); !rows.Bof(); rows.MovePrevious())
        ids << rows.number("ID");
    EXPECT_EQ(ids, (QList<int>{1, 2, 3, 4, 5, 5, 4, 3, 2, 1}));
    EXPECT_TRUE(rows.Bof());
    rows.MoveFirst();
    EXPECT_EQ(rows.number("ID"), 1);
}

TEST_F(RecordsetTest, WalkingOnFromAnEndFails)
{
    open();
    rows.MovePrevious();
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(errorOf([&] { rows.MovePrevious(); }), errors::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { rows.text("ID"); }), errors::kNoCurrentRecord);
    rows.Find("ID", "99");
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(errorOf([&] { rows.MoveNext(); }), errors::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { rows.text("ID"); }), errors::kNoCurrentRecord);
}

TEST_F(RecordsetTest, WithoutRowsItStandsAtBothEnds)
{
    open("SELECT * FROM tbRoom WHERE ID > 99");
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(rows.fieldNames(), (QStringList{"ID", "Name", "Size", "Note"}));
    rows.Find("Name", "alpha");
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(errorOf([&] { rows.MoveNext(); }), errors::kNoCurrentRecord);
}

TEST_F(RecordsetTest, FieldsKeepTheirKindAndNullIsNull)
{
    open();
    EXPECT_EQ(rows["ID"].typeId(), int(QMetaType::LongLong));
    EXPECT_EQ(rows["Size"].typeId(), int(QMetaType::Double));
    EXPECT_EQ(rows["Size"].toDouble(), 1.5);
    EXPECT_TRUE(rows["Note"].isNull());
    EXPECT_EQ(rows.text("Note"), "");
    EXPECT_EQ(rows.optionalText("Note"), std::nullopt);
    EXPECT_EQ(rows.optionalText("Size"), "1.5");
    rows.Find("ID", "3");
    EXPECT_FALSE(rows["Note"].isNull()) << "an empty text is not NULL";
    EXPECT_EQ(rows.text("Note"), "");
    EXPECT_EQ(rows.optionalText("Note"), "");
    rows.MoveNext();
    EXPECT_TRUE(rows["Size"].isNull());
}

TEST_F(RecordsetTest, FieldsAreNamedWithoutRegardToCase)
{
    open();
    EXPECT_EQ(rows.text("NAME"), "Alpha");
    EXPECT_EQ(rows.text("name"), "Alpha");
    EXPECT_TRUE(rows.hasField("nOtE"));
    EXPECT_FALSE(rows.hasField("Colour"));
    EXPECT_EQ(errorOf([&] { rows.text("Colour"); }), errors::kItemNotFound);
}

TEST_F(RecordsetTest, FindsFromTheCurrentRowOnWithoutRegardToCase)
{
    struct Row
    {
        const char* column;
        const char* value;
        int id; // 0: stands at the end
    };
    const Row fromTheFirst[] = {
        {"Name", "alpha", 1}, {"name", "BETA", 2},  {"Name", "O'Hara", 4}, {"Name", "ж1", 5},
        {"ID", "3", 3},       {"Size", "1.5", 1},   {"Name", "gamma", 0},  {"Name", "alph", 0},
        {"Note", "", 3},      {"Name", " beta", 0},
    };
    open();
    for (const Row& row : fromTheFirst) {
        rows.MoveFirst();
        rows.Find(row.column, row.value);
        EXPECT_EQ(rows.Eof() ? 0 : rows.number("ID"), row.id) << row.value;
    }
    rows.MoveFirst();
    rows.Find("Name", "alpha");
    rows.MoveNext();
    rows.Find("Name", "alpha");
    EXPECT_EQ(rows.number("ID"), 3);
    rows.MoveNext();
    rows.Find("Name", "alpha");
    EXPECT_TRUE(rows.Eof());
}

TEST_F(RecordsetTest, AColumnThatIsNoneFails)
{
    open();
    rows.MoveNext();
    EXPECT_EQ(errorOf([&] { rows.Find("Colour", "red"); }), errors::kItemNotFound);
    EXPECT_EQ(errorOf([&] { rows.Filter("Colour", "red"); }), errors::kItemNotFound);
    EXPECT_EQ(rows.number("ID"), 2) << "the cursor stays";
    EXPECT_EQ(rows.RecordCount(), 5);
}

TEST_F(RecordsetTest, TheLastRowIsReachedInOneStep)
{
    open();
    rows.MoveLast();
    EXPECT_EQ(rows.number("ID"), 5);
    rows.Filter("Name", "alpha");
    rows.MoveLast();
    EXPECT_EQ(rows.number("ID"), 3);
    rows.Filter("Name", "nobody");
    rows.MoveLast();
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
}

TEST_F(RecordsetTest, ColumnsOfParenthesisedJoinsBearTheirPlainNames)
{
    open("SELECT tbRoom.ID, Name, tbDoor.ID AS Door FROM (tbRoom INNER JOIN tbDoor ON tbRoom.ID = "
         "tbDoor.Room) "
         "INNER JOIN (SELECT 1 AS One) ON 1 = 1 ORDER BY tbRoom.ID");
    EXPECT_EQ(rows.fieldNames(), (QStringList{"ID", "Name", "Door"}));
    EXPECT_EQ(rows.number("Door"), 10);
    rows.Close();
    open("SELECT 1 AS \"IDGrp:1\", 2 AS \"Name:12\"");
    EXPECT_EQ(rows.fieldNames(), (QStringList{"IDGrp", "Name"}));
    EXPECT_EQ(rows.number("IDGrp"), 1);
}

TEST_F(RecordsetTest, OfTwoColumnsWithOneNameTheFirstIsMeant)
{
    open("SELECT ID, Name, Name || '!' AS Name FROM tbRoom");
    EXPECT_EQ(rows.text("Name"), "Alpha");
}

TEST_F(RecordsetTest, RowsSurviveChangesOfTheTableAndTheEndOfTheConnection)
{
    open();
    connection.Execute("DELETE FROM tbRoom");
    connection.Close();
    EXPECT_EQ(rows.RecordCount(), 5);
    rows.Find("Name", "beta");
    EXPECT_EQ(rows.number("ID"), 2);
}

TEST_F(RecordsetTest, OpensOnceAndAgainAfterAClose)
{
    EXPECT_EQ(rows.State(), int(Recordset::Closed));
    open();
    EXPECT_EQ(rows.State(), int(Recordset::Opened));
    EXPECT_EQ(errorOf([&] { open(); }), errors::kInvalidCall);
    EXPECT_EQ(rows.RecordCount(), 5) << "and stays as it was";
    rows.Close();
    EXPECT_EQ(rows.State(), int(Recordset::Closed));
    EXPECT_EQ(rows.RecordCount(), 0);
    open("SELECT Room FROM tbDoor");
    EXPECT_EQ(rows.fieldNames(), QStringList{"Room"});
}

TEST_F(RecordsetTest, AFilterShowsOnlyTheRowsThatMeetIt)
{
    open();
    rows.Filter("Name", "alpha");
    EXPECT_EQ(rows.RecordCount(), 2);
    QList<int> ids;
    for (; !rows.Eof(); rows.MoveNext())
        ids << rows.number("ID");
    EXPECT_EQ(ids, (QList<int>{1, 3}));
    rows.MoveFirst();
    rows.Find("ID", "3");
    EXPECT_EQ(rows.number("ID"), 3);
    rows.MoveFirst();
    rows.Find("ID", "2");
    EXPECT_TRUE(rows.Eof()) << "it isn't shown";

    rows.Filter("Name", "O'Hara");
    EXPECT_EQ(rows.number("ID"), 4);
    rows.Filter("Name", "nobody");
    EXPECT_TRUE(rows.Eof());
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(errorOf([&] { rows.text("ID"); }), errors::kNoCurrentRecord);
    rows.Filter("Name", "beta");
    EXPECT_EQ(rows.RecordCount(), 1) << "of all rows, not of those that were shown";
    EXPECT_EQ(rows.number("ID"), 2);
}

TEST_F(RecordsetTest, AStatementThatFailsLeavesItClosed)
{
    for (const char* sql : {"SELECT * FROM tbNothing", "SELEKT", ""}) {
        EXPECT_NE(errorOf([&] { open(sql); }), 0) << sql;
        EXPECT_EQ(rows.State(), int(Recordset::Closed)) << sql;
        EXPECT_EQ(rows.fieldNames(), QStringList()) << sql;
    }
    connection.Close();
    EXPECT_EQ(errorOf([&] { open(); }), errors::kObjectClosed);
}

} // namespace
