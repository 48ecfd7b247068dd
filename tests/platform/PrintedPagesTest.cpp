#include "platform/PrintedPages.h"

#include "platform/RecordingPrinters.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace {

using platform::printedLines;
using platform::PrintedPages;
using platform::RecordingPrinter;
using platform::withoutTabs;

TEST(WithoutTabs, ATabGoesToTheNextColumnThatEightDivides)
{
    EXPECT_EQ(withoutTabs("\tx"), "        x");
    EXPECT_EQ(withoutTabs("1234567\tx"), "1234567 x");
    EXPECT_EQ(withoutTabs("12345678\tx"), "12345678        x");
    EXPECT_EQ(withoutTabs("\t\tx"), QString(16, ' ') + "x");
}

TEST(WithoutTabs, AControlCharacterIsABlank)
{
    EXPECT_EQ(withoutTabs(QString("a\r\nb") + QChar(0x7F) + QChar(0x85)), "a  b  ");
    EXPECT_EQ(withoutTabs("Ж"), "Ж");
}

TEST(PrintedLines, AWideRowGoesOnInTheNextLine)
{
    EXPECT_EQ(printedLines("abcdef", 6), QStringList({"abcdef"}));
    EXPECT_EQ(printedLines("abcdefg", 6), QStringList({"abcdef", "g"}));
    EXPECT_EQ(printedLines("abcdefghijklm", 6), QStringList({"abcdef", "ghijkl", "m"}));
    EXPECT_EQ(printedLines("", 6), QStringList({""}));
    EXPECT_EQ(printedLines("ab", 0), QStringList({"a", "b"}));
}

// Paper of ten columns at size 10 whose lines are 11.3 high.
class Pages : public testing::Test
{
protected:
    static constexpr double kLine = 11.3;
    static PrintedPages::Look look(int rows)
    {
        return {10, 10, rows, [](int page) { return QStringLiteral("foot %1").arg(page); }};
    }
    RecordingPrinter paper{60, 6 * kLine + 1};
};

TEST_F(Pages, EachHasItsHeadAndItsFootAtTheSamePlace)
{
    PrintedPages pages(paper, look(3));
    EXPECT_FALSE(pages.hasRoomFor({"row"}));
    pages.beginPage({"head"});
    pages.row("one");
    EXPECT_FALSE(pages.isFull());
    pages.beginPage({"head"});
    pages.row("two");
    pages.row("three");
    pages.row("four");
    EXPECT_TRUE(pages.isFull());
    pages.finish();
    EXPECT_EQ(pages.page(), 2);
    EXPECT_EQ(paper.pages, (std::vector<QStringList>{{"head", "one", "", "", "foot 1"},
                                                     {"head", "two", "three", "four", "foot 2"}}));
}

TEST_F(Pages, WithoutARowThereIsNoPage)
{
    PrintedPages pages(paper, look(3));
    pages.finish();
    EXPECT_EQ(paper.pages, (std::vector<QStringList>{{}}));
}

TEST_F(Pages, ARuleCountsAsNoRowAndAWideRowAsItsLines)
{
    PrintedPages pages(paper, look(3));
    pages.beginPage({"head"});
    pages.rule("----");
    pages.row("0123456789x");
    EXPECT_FALSE(pages.isFull());
    pages.row("y");
    EXPECT_TRUE(pages.isFull());
    pages.finish();
    EXPECT_EQ(paper.pages[0], QStringList({"head", "----", "0123456789", "x", "y", "foot 1"}));
}

TEST_F(Pages, TheFootsPlaceStaysFreeOnPaperThatIsTooShort)
{
    PrintedPages pages(paper, look(68));
    pages.beginPage({"head"});
    EXPECT_TRUE(pages.hasRoomFor({"1", "2", "3", "4"}));
    EXPECT_FALSE(pages.hasRoomFor({"1", "2", "3", "4", "5"}));
    EXPECT_FALSE(pages.hasRoomFor({"1", "2", "3", "0123456789x"}));
    for (const char* row : {"1", "2", "3"})
        pages.row(row);
    EXPECT_TRUE(pages.hasRoomFor({"4"}));
    pages.row("4");
    EXPECT_FALSE(pages.hasRoomFor({"5"}));
    pages.finish();
    EXPECT_EQ(paper.pages[0], QStringList({"head", "1", "2", "3", "4", "foot 1"}));
}

TEST_F(Pages, WithoutAFootItsPlaceIsARows)
{
    PrintedPages pages(paper, {10, 10, 68});
    pages.beginPage({"head"});
    EXPECT_TRUE(pages.hasRoomFor({"1", "2", "3", "4", "5"}));
    pages.row("1");
    pages.finish();
    EXPECT_EQ(paper.pages[0], QStringList({"head", "1", "", "", "", ""}));
}

TEST_F(Pages, HeadAndFootHaveASizeOfTheirOwn)
{
    PrintedPages::Look look = this->look(1);
    look.rowSize = 5;
    PrintedPages pages(paper, look);
    pages.beginPage({"head"});
    pages.row("0123456789012345678");
    pages.beginPage({"0123456789x"});
    pages.row("row");
    pages.finish();
    EXPECT_EQ(paper.sizes, (std::vector<std::vector<int>>{{10, 5, 10}, {10, 10, 5, 10}}));
}

} // namespace
