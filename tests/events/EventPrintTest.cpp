#include "events/EventPrint.h"

#include "LogText.h"
#include "events/EventModel.h"
#include "platform/RecordingPrinters.h"

#include <gmock/gmock.h>

using namespace events;

namespace {

class EventPrintTest : public testing::Test
{
protected:
    EventPrintTest()
    {
        list_.setWords({{"Type", "Date", "Source", "Equipment", "Instrument", "Description"},
                        {"", "Information", "Warning", "Error"},
                        {"", "ALLARMS", "READ/WRITE"}});
    }
    void add(int count, const QByteArray& description)
    {
        while (count-- > 0)
            list_.store().append(LogLine(logs::event(description).chopped(1)));
        list_.finish();
        list_.setAllChecked(true);
    }
    std::vector<QStringList> print(const QString& company = "ACME")
    {
        paper_ = platform::RecordingPrinter(3000, 600); // wide enough for a row
        EventPrint{"Event Viewer", company, QDate(2026, 11, 21), "Page "}.write(paper_, list_);
        return paper_.pages;
    }

    EventModel list_;
    platform::RecordingPrinter paper_;
};

QString columns(const QStringList& cells)
{
    const int widths[] = {21, 20, 21, 51, 51, 0};
    QString line;
    for (qsizetype i = 0; i < 6; ++i)
        line += cells[i].leftJustified(widths[i]);
    return line;
}

TEST_F(EventPrintTest, APageHasItsHeadItsRowsAndItsFoot)
{
    add(2, "Connected.");
    const auto pages = print();
    ASSERT_EQ(pages.size(), 1u);
    const QStringList& page = pages[0];
    ASSERT_EQ(page.size(), 4 + 45 + 1); // filled up, so that the foot stands at the same place
    EXPECT_EQ(page[0], QString(122, '*'));
    EXPECT_EQ(page[1], "Event Viewer - ACME - 21/11/2026 - Page 1");
    EXPECT_EQ(page[2], QString(122, '-'));
    EXPECT_EQ(page[3], columns({"Type", "Date", "Source", "Equipment", "Instrument", "Description"}));
    EXPECT_EQ(page[4],
              columns({"Information", "2026/03/14 10:20:30", "READ/WRITE", "PLANT", "BOILER", "Connected."}));
    EXPECT_EQ(page[5], page[4]);
    EXPECT_EQ(page[6], "");
    EXPECT_EQ(page[48], "");
    EXPECT_EQ(page[49], QString(122, '-'));
    EXPECT_EQ(paper_.font, "Courier New");
}

TEST_F(EventPrintTest, FortyFiveRowsFillAPage)
{
    add(45, "x");
    EXPECT_EQ(print().size(), 1u);
    add(1, "last");
    const auto pages = print({});
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[1][1], "Event Viewer - 21/11/2026 - Page 2"); // without a company there is no gap
    EXPECT_TRUE(pages[1][4].endsWith(" last"));
    EXPECT_EQ(pages[0].size(), pages[1].size());
}

TEST_F(EventPrintTest, ARowWiderThanThePageGoesOnAndCounts)
{
    add(30, QByteArray(255, 'd'));
    paper_ = platform::RecordingPrinter(140 * 0.6 * 9 + 1, 600);
    EventPrint{"Event Viewer", "ACME", QDate(2026, 11, 21), "Page "}.write(paper_, list_);
    ASSERT_GE(paper_.pages.size(), 2u);
    const QString whole = paper_.pages[0][5] + paper_.pages[0][6] + paper_.pages[0][7];
    EXPECT_TRUE(whole.startsWith("Information"));
    EXPECT_TRUE(whole.endsWith(QString(255, 'd')));
    EXPECT_EQ(paper_.pages[0].size(), 5 + 45 + 1); // three lines a row
}

TEST_F(EventPrintTest, OnlyCheckedRowsInTheListsOrder)
{
    add(1, "b");
    add(1, "a");
    add(1, "c");
    list_.clickColumn(EventColumn::Description);
    list_.setData(list_.index(2, 0), Qt::Unchecked, Qt::CheckStateRole);
    const QStringList page = print()[0];
    EXPECT_TRUE(page[4].endsWith(" a"));
    EXPECT_TRUE(page[5].endsWith(" b"));
    EXPECT_EQ(page[6], "");
    list_.setAllChecked(false);
    EXPECT_EQ(print()[0].size(), 0);
}

} // namespace
