#include "console/LogModel.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using console::LogModel;

namespace {

QStringList descriptions(const LogModel& log)
{
    QStringList lines;
    for (int row = 0; row < log.rowCount(); ++row)
        lines << log.text(row, 1);
    return lines;
}

TEST(LogModelTest, LinesStandInTheOrderOfArrival)
{
    LogModel log;
    EXPECT_EQ(log.add("2026/03/14 09:00:01", "b"), 0);
    EXPECT_EQ(log.add("2026/03/14 09:00:00", "a"), 1);
    EXPECT_EQ(descriptions(log), QStringList({"b", "a"}));
    EXPECT_EQ(log.sortColumn(), -1);
    EXPECT_EQ(log.data(log.index(0, 0), Qt::DisplayRole).toString(), "2026/03/14 09:00:01");
    EXPECT_EQ(log.data(log.index(1, 1), Qt::DisplayRole).toString(), "a");
    EXPECT_FALSE(log.data(log.index(0, 0), Qt::DecorationRole).isValid());
    EXPECT_FALSE(log.data({}, Qt::DisplayRole).isValid());
}

TEST(LogModelTest, AClickSortsAndASecondFlips)
{
    LogModel log;
    log.add("3", "b");
    log.add("1", "C");
    log.add("2", "a");
    log.clickColumn(1);
    EXPECT_EQ(descriptions(log), QStringList({"a", "b", "C"}));
    EXPECT_TRUE(log.sortAscending());
    log.clickColumn(1);
    EXPECT_EQ(descriptions(log), QStringList({"C", "b", "a"}));
    EXPECT_FALSE(log.sortAscending());
    log.clickColumn(0);
    EXPECT_EQ(descriptions(log), QStringList({"C", "a", "b"}));
    EXPECT_TRUE(log.sortAscending()) << "another column begins ascending";
    EXPECT_EQ(log.sortColumn(), 0);
}

TEST(LogModelTest, WhatPointsAtALineGoesWithIt)
{
    LogModel log;
    for (const char* text : {"b", "d", "a", "c"})
        log.add("same", text);
    const QPersistentModelIndex chosen = log.index(1, 0);
    const QPersistentModelIndex other = log.index(2, 1);
    log.clickColumn(1);
    EXPECT_EQ(chosen.row(), 3);
    EXPECT_EQ(chosen.column(), 0);
    EXPECT_EQ(other.row(), 0);
    log.clickColumn(1);
    EXPECT_EQ(chosen.row(), 0);
    EXPECT_EQ(other.row(), 3);
    EXPECT_EQ(other.column(), 1);
}

TEST(LogModelTest, EqualLinesKeepTheOrderOfArrival)
{
    LogModel log;
    for (const char* text : {"x1", "x2", "x3"})
        log.add("same", text);
    log.clickColumn(0);
    log.clickColumn(0);
    EXPECT_EQ(descriptions(log), QStringList({"x1", "x2", "x3"}));
}

TEST(LogModelTest, ANewLineGoesToItsPlaceInASortedList)
{
    LogModel log;
    log.add("1", "a");
    log.add("2", "c");
    log.clickColumn(1);
    int inserted = -1;
    QObject::connect(&log, &LogModel::rowsInserted,
                     [&](const QModelIndex&, int first, int) { inserted = first; });
    EXPECT_EQ(log.add("3", "b"), 1);
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(descriptions(log), QStringList({"a", "b", "c"}));
}

TEST(LogModelTest, ClearingForgetsLinesAndOrder)
{
    LogModel log;
    log.add("1", "a");
    log.clickColumn(1);
    log.clickColumn(1);
    log.clear();
    EXPECT_EQ(log.rowCount(), 0);
    EXPECT_EQ(log.sortColumn(), -1);
    EXPECT_TRUE(log.sortAscending());
}

TEST(LogModelTest, TwoColumnsWithTheirCaptions)
{
    LogModel log;
    log.setColumnCaptions({"Date", "Description"});
    EXPECT_EQ(log.columnCount(), 2);
    EXPECT_EQ(log.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Date");
    EXPECT_EQ(log.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Description");
    EXPECT_FALSE(log.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(log.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

} // namespace
