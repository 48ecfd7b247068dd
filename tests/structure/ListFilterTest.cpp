#include "structure/ListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using structure::ListItem;
using structure::ListModel;

namespace {

class ListFilterTest : public testing::Test
{
protected:
    ListFilterTest()
    {
        list.setItems({{"a", "Temperature", "4.5 °C", "", 5},
                       {"b", "Fan", "On", "", 6},
                       {"c", "Камера", "12.3 °C", "", 5},
                       {"d", "100%_sure", "O'Hara", "a note", 7}});
    }
    QString shown() const
    {
        QString keys;
        for (int row = 0; row < list.rowCount(); ++row)
            keys += list.keyAt(row);
        return keys;
    }

    ListModel list;
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ListFilterTest, ShowsWhatHoldsTheTextInAnyColumnAndAnyCase)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", "abcd"},    {"FAN", "b"},    {"temp", "a"}, {"on", "b"},      {"°c", "ac"}, {"КАМ", "c"},
        {"камера", "c"}, {"12.3", "c"},   {"%", "d"},    {"_", "d"},       {"'", "d"},   {"A NOTE", "d"},
        {"a", "abd"},    {"nothing", ""}, {".", "ac"},   {"4.5 °C ", "a"}, {"\\", ""},   {"*", ""},
    };
    for (const auto& [text, keys] : rows) {
        list.setFilter(text);
        EXPECT_EQ(shown(), keys) << text;
        EXPECT_EQ(list.itemCount(), 4) << text;
    }
}

TEST_F(ListFilterTest, AHiddenItemIsStillFoundChangedAndRemovedByItsKey)
{
    list.setFilter("fan");
    EXPECT_EQ(list.rowOf("a"), -1);
    ASSERT_NE(list.item("a"), nullptr);
    EXPECT_TRUE(list.updateItem({"a", "Temperature", "5.0 °C", "", 6}));
    EXPECT_TRUE(list.removeItem("c"));
    EXPECT_EQ(shown(), "b");
    list.setFilter({});
    EXPECT_EQ(shown(), "abd");
    EXPECT_EQ(list.index(0, 1).data(), "5.0 °C");
}

TEST_F(ListFilterTest, WhatIsAddedShowsUntilTheFilterChanges)
{
    list.setFilter("fan");
    list.sortByColumn(0, true);
    EXPECT_TRUE(list.addItem({"e", "Door", "", "", 5}));
    EXPECT_EQ(shown(), "eb") << "new, though it holds no such text; in its place";
    EXPECT_FALSE(list.addItem({"a", "Again", "", "", 5})) << "hidden, but there";
    EXPECT_TRUE(list.removeItem("e"));
    EXPECT_EQ(shown(), "b");
}

TEST_F(ListFilterTest, AChangedItemStaysWhereItIsShown)
{
    list.setFilter("on");
    QSignalSpy changed(&list, &ListModel::dataChanged);
    EXPECT_TRUE(list.updateItem({"b", "Fan", "Off", "", 6}));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(shown(), "b");
    EXPECT_TRUE(list.updateItem({"a", "Temperature", "On", "", 6}));
    EXPECT_EQ(changed.count(), 1) << "a hidden row has nobody to tell";
}

TEST_F(ListFilterTest, SortsUnderAFilterAndKeepsTheOrderWithoutIt)
{
    list.setFilter("c");
    EXPECT_EQ(shown(), "ac");
    list.sortByColumn(0, false);
    EXPECT_EQ(shown(), "ca");
    list.setFilter({});
    EXPECT_EQ(shown(), "cabd");
    list.sortByColumn(-1, true);
    EXPECT_EQ(shown(), "abcd");
}

TEST_F(ListFilterTest, ALoadUnderAFilterShowsWhatPasses)
{
    list.setFilter("fan");
    list.setItems({{"x", "Fan 1", "", "", 5}, {"y", "Light", "", "", 5}, {"z", "fan 2", "", "", 5}});
    EXPECT_EQ(shown(), "xz");
}

TEST_F(ListFilterTest, TellsOfAChangeOnce)
{
    QSignalSpy told(&list, &ListModel::filterChanged);
    list.setFilter("fan");
    list.setFilter("fan");
    list.setFilter({});
    EXPECT_EQ(told.count(), 2);
}

} // namespace
