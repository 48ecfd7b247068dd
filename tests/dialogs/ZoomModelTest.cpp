#include "dialogs/ZoomModel.h"

#include "support/QtPrinters.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

namespace {

class ZoomModelTest : public testing::Test
{
protected:
    ZoomModelTest()
    {
        model.setRows({"ID", "Name"}, {{"b", "One"}, {"A", "two"}, {"c", "ONE"}, {"B", "Холод"}});
    }

    QStringList keys() const
    {
        QStringList keys;
        for (int row = 0; row < model.rowCount(); ++row)
            keys << model.keyAt(row);
        return keys;
    }

    dialogs::ZoomModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ZoomModelTest, ShowsColumnsAndRowsAsTheyCome)
{
    EXPECT_EQ(keys(), (QStringList{"b", "A", "c", "B"}));
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole), "Name");
    EXPECT_EQ(model.index(3, 1).data(), "Холод");
    EXPECT_EQ(model.keyAt(-1), "");
    EXPECT_EQ(model.keyAt(4), "");
}

TEST_F(ZoomModelTest, AColumnSortsAndAgainTurns)
{
    model.clickColumn(0);
    EXPECT_EQ(keys(), (QStringList{"A", "b", "B", "c"})) << "equal keys keep their order";
    EXPECT_TRUE(model.sortAscending());
    model.clickColumn(0);
    EXPECT_EQ(keys(), (QStringList{"c", "b", "B", "A"}));
    EXPECT_FALSE(model.sortAscending());
    model.clickColumn(1);
    EXPECT_EQ(keys(), (QStringList{"c", "b", "A", "B"}));
    EXPECT_EQ(model.sortColumn(), 1);
    EXPECT_TRUE(model.sortAscending());
}

TEST_F(ZoomModelTest, ASortTakesTheSelectionAlong)
{
    const QPersistentModelIndex chosen = model.index(2, 1);
    model.clickColumn(0);
    EXPECT_EQ(chosen.row(), 3);
    EXPECT_EQ(chosen.data(), "ONE");
}

TEST_F(ZoomModelTest, NewRowsComeInTheirOwnOrder)
{
    model.clickColumn(0);
    model.setRows({"ID"}, {{"z"}, {"a"}});
    EXPECT_EQ(keys(), (QStringList{"z", "a"}));
    EXPECT_EQ(model.sortColumn(), -1);
    model.clear();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
}

TEST_F(ZoomModelTest, FindsATextInAnyColumn)
{
    struct Row
    {
        const char* text;
        int first, last, found;
    };
    for (const Row& row : {Row{"one", 0, 4, 0}, Row{"one", 1, 4, 2}, Row{"one", 3, 4, -1}, Row{"A", 0, 4, 1},
                           Row{"ХОЛОД", 0, 4, 3}, Row{"wo", 0, 1, -1}, Row{"wo", 0, 2, 1}, Row{"x", 0, 4, -1},
                           Row{"one", 4, 4, -1}})
        EXPECT_EQ(model.find(row.text, row.first, row.last), row.found) << row.text << row.first;
}

} // namespace
