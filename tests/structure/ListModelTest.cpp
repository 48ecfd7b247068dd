#include "structure/ListModel.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using structure::ListItem;
using structure::ListModel;

namespace {

class ListModelTest : public testing::Test
{
protected:
    void load()
    {
        list.setItems({{"a", "beta", "2", "", 2}, {"b", "Alpha", "10", "x", 2}, {"c", "alpha", "", "", 3}});
    }
    QString keys() const
    {
        QString keys;
        for (int row = 0; row < list.rowCount(); ++row)
            keys += list.keyAt(row);
        return keys;
    }
    int sortIcon(int column) const
    {
        return list.headerData(column, Qt::Horizontal, ListModel::ImageRole).toInt();
    }

    ListModel list;
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ListModelTest, ShowsThreeColumnsAnItem)
{
    load();
    EXPECT_EQ(list.columnCount(), 3);
    EXPECT_EQ(list.index(1, 0).data(), "Alpha");
    EXPECT_EQ(list.index(1, 1).data(), "10");
    EXPECT_EQ(list.index(1, 2).data(), "x");
    EXPECT_EQ(list.index(1, 0).data(ListModel::KeyRole), "b");
    EXPECT_EQ(list.index(2, 0).data(ListModel::ImageRole), 3);
}

TEST_F(ListModelTest, FindsItemsByKey)
{
    load();
    EXPECT_EQ(list.rowOf("c"), 2);
    EXPECT_EQ(list.rowOf("z"), -1);
    EXPECT_EQ(list.keyAt(3), "");
    EXPECT_EQ(list.keyAt(-1), "");
    ASSERT_NE(list.item("b"), nullptr);
    EXPECT_EQ(list.item("b")->detail, "x");
    EXPECT_EQ(list.item("z"), nullptr);
}

// Numbers by their size, in front of words and behind empty cells; a time and an address are words.
TEST_F(ListModelTest, SortsNumbersBySize)
{
    list.setItems({{"a", "", "12:30", "", 5},
                   {"b", "", "1,234 bar", "", 5},
                   {"c", "", "-4 °C", "", 5},
                   {"d", "", "", "", 5},
                   {"e", "", "9.5", "", 5},
                   {"f", "", "0A", "", 5},
                   {"g", "", "--", "", 5}});
    list.sortByColumn(1, true);
    EXPECT_EQ(keys(), "dcebgfa");
    list.sortByColumn(1, false);
    EXPECT_EQ(keys(), "afgbecd");
}

TEST_F(ListModelTest, SortsByAColumnWithoutRegardToCaseUntilToldOtherwise)
{
    struct Row
    {
        int column;
        bool ascending;
        const char* keys;
    };
    const Row rows[] = {{0, true, "bca"},  {0, false, "abc"}, {1, true, "cab"},
                        {1, false, "bac"}, {2, true, "acb"},  {-1, true, "abc"}};
    load();
    for (const Row& row : rows) {
        list.sortByColumn(row.column, row.ascending);
        EXPECT_EQ(keys(), row.keys) << row.column << row.ascending;
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(sortIcon(column), column != row.column ? 0 : row.ascending ? 1 : 2);
    }
}

TEST_F(ListModelTest, WhatIsAddedTakesItsPlaceInTheOrderInForce)
{
    load();
    list.sortByColumn(0, true);
    EXPECT_TRUE(list.addItem({"d", "BAKER", "", "", 2}));
    EXPECT_EQ(keys(), "bcda");
    EXPECT_FALSE(list.addItem({"d", "again", "", "", 2}));
    load();
    EXPECT_EQ(keys(), "bca") << "the order stays for what is loaded next";
}

TEST_F(ListModelTest, AViewsSelectionFollowsItsItem)
{
    load();
    const QPersistentModelIndex held(list.index(0, 1));
    list.sortByColumn(0, true);
    EXPECT_EQ(held.data(ListModel::KeyRole), "a");
    EXPECT_EQ(held.column(), 1);
    list.removeItem("a");
    EXPECT_FALSE(held.isValid());
}

TEST_F(ListModelTest, RemovesAndUpdatesByKey)
{
    load();
    EXPECT_TRUE(list.removeItem("a"));
    EXPECT_FALSE(list.removeItem("a"));
    EXPECT_TRUE(list.updateItem({"c", "alpha", "7", "", 6}));
    EXPECT_FALSE(list.updateItem({"a", "", "", "", 6}));
    EXPECT_EQ(keys(), "bc");
    EXPECT_EQ(list.index(1, 1).data(), "7");
    list.clear();
    EXPECT_EQ(list.rowCount(), 0);
}

TEST_F(ListModelTest, OfTwoItemsWithOneKeyTheFirstStays)
{
    list.setItems({{"a", "first", "", "", 1}, {"a", "second", "", "", 1}, {"b", "third", "", "", 1}});
    EXPECT_EQ(keys(), "ab");
    EXPECT_EQ(list.item("a")->text, "first");
    EXPECT_EQ(list.rowOf("b"), 1);
}

TEST_F(ListModelTest, CaptionsStandOverTheColumns)
{
    list.setColumnCaptions({"Name", "Phone", "Description"});
    EXPECT_EQ(list.headerData(1, Qt::Horizontal, Qt::DisplayRole), "Phone");
    EXPECT_FALSE(list.headerData(3, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(list.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

} // namespace
