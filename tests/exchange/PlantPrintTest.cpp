#include "exchange/PlantPrint.h"

#include "exchange/ExchangeFixture.h"
#include "platform/RecordingPrinters.h"
#include "session/Printing.h"

namespace exchange {
namespace {

class PlantPrintTest : public ExchangeFixture
{
protected:
    // Prints on the chosen printer; the pages.
    std::vector<QStringList> print()
    {
        op.onModal = [this](const QString&) { printing.choose("Office", 2); };
        printer.Print_Item();
        return printers.jobs.empty() ? std::vector<QStringList>() : printers.jobs.back().pages;
    }
    // A page's lines with the empty ones in front of the foot told as their number.
    static QStringList folded(const QStringList& page)
    {
        QStringList lines;
        int empty = 0;
        for (const QString& line : page) {
            empty = line.isEmpty() ? empty + 1 : 0;
            if (empty > 1)
                lines.back() = QString("%1 empty").arg(empty);
            else
                lines << line;
        }
        return lines;
    }
    void makeParameters(int group, int instrument, int count)
    {
        session.cnDatabase.Execute(
            QString("INSERT INTO tbInstrumentsUser VALUES (%1, %2, 'KT100', 'I%2', NULL, NULL);")
                .arg(group)
                .arg(instrument));
        for (int i = 0; i < count; ++i) {
            const QString id = QString("X%1").arg(i, 4, 10, QChar('0'));
            session.cnDatabase.Execute(
                "INSERT OR IGNORE INTO tbParam (mID, mKeyParGroup, mKeyType, mMemBank) VALUES ('" + id +
                "', 'G01', 1, 1);");
            session.cnDatabase.Execute("INSERT OR IGNORE INTO tbParamLanguage VALUES ('" + id + "', 'EN', '" +
                                       id + "');");
            session.cnDatabase.Execute(
                QString("INSERT INTO tbParametersUser VALUES (%1, %2, '%3', 'G01', 'v', 0);")
                    .arg(group)
                    .arg(instrument)
                    .arg(id));
        }
    }
    void makeEmptyGroup()
    {
        makeSmallPlant();
        runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser;");
        standOn("1_4");
    }

    static QString equipment(const QString& name) { return "Equipment: " + name.leftJustified(30); }
    static QString instrument(const QString& name) { return "Instrument: " + name.leftJustified(40); }

    const QString stars = QString(80, '*'), dashes = QString(80, '-');
    const QString title = QString(40, ' ') + "Calidora - ZEL Bus";
    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
    PlantPrint printer{{session, texts, op, clock, structure, printing}};
};

TEST_F(PlantPrintTest, APageOfAGroup)
{
    makeSmallPlant();
    standOn("1_4");
    const auto pages = print();
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(folded(pages[0]),
              QStringList({stars, title, dashes,
                           equipment("North") + "Phone: 0551", //
                           dashes, instrument("Case"),
                           "         EN DIF = 300 K", //
                           dashes, instrument("Cold 1") + "Address: 10", "         EN T1 = 12.3 °C",
                           "         EN FAN = Full", "         EN NGT = --.--", "62 empty",
                           "        14/03/2026      Page 1"}));
    const auto& job = printers.jobs[0];
    EXPECT_EQ(job.font, "Courier New");
    EXPECT_EQ(job.order.copies, 2);
    EXPECT_EQ(job.orientation, platform::Orientation::Portrait);
    EXPECT_EQ(job.title, "Calidora - ZEL Bus");
    EXPECT_EQ(job.sizes[0].front(), 10);
    EXPECT_EQ(job.sizes[0][3], 10);
    EXPECT_EQ(job.sizes[0][4], 9);
    EXPECT_EQ(job.sizes[0].back(), 10);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    EXPECT_EQ(op.forms, QStringList({"modal frmPrinters"}));
}

TEST_F(PlantPrintTest, EachGroupBeginsOnAPageOfItsOwnAndPagesCountOn)
{
    makeSmallPlant();
    runOnPlant(
        "INSERT INTO tbGroupsUser VALUES (2, 'Zeta with a name of 31 letters.', NULL, NULL);"
        "INSERT INTO tbInstrumentsUser VALUES (2, 7, 'KT100', 'An instrument of a name with 41 letters..', "
        "NULL, '0B');"
        "INSERT INTO tbParametersUser VALUES (2, 7, 'P0101', 'G01', NULL, 0);");
    standOn("Root");
    const auto pages = print();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(folded(pages[1]),
              QStringList({stars, title, dashes, "Equipment: Zeta with a name of 31 letters", dashes,
                           "Instrument: An instrument of a name with 41 letters.Address: 0B",
                           "         EN T1 = --", "66 empty", "        14/03/2026      Page 2"}));
}

TEST_F(PlantPrintTest, ANewGroupForgetsTheLastInstrument)
{
    makeEmptyGroup();
    session.cnDatabase.Execute("INSERT INTO tbGroupsUser VALUES (5, 'South', NULL, NULL);");
    makeParameters(4, 1, 1);
    makeParameters(5, 1, 1);
    structure.clickNode("Root");
    const auto pages = print();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_TRUE(pages[1][5].startsWith("Instrument: I1"));
}

TEST_F(PlantPrintTest, APageHoldsSixtyEightLines)
{
    makeEmptyGroup();
    makeParameters(4, 1, 67);
    auto pages = print();
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0].size(), 4 + 1 + 68 + 1);
    EXPECT_EQ(pages[0].back(), "        14/03/2026      Page 1");
    makeParameters(4, 2, 1);
    pages = print();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].size(), 4 + 1 + 68 + 1);
    EXPECT_EQ(folded(pages[1]),
              QStringList({stars, title, dashes, equipment("North") + "Phone: 0551", dashes, instrument("I2"),
                           "         X0000 = v", "66 empty", "        14/03/2026      Page 2"}));
}

TEST_F(PlantPrintTest, AnInstrumentGoesOnOnTheNextPageWithoutItsHeading)
{
    makeEmptyGroup();
    makeParameters(4, 1, 70);
    const auto pages = print();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(folded(pages[1]).mid(4),
              QStringList({"         X0067 = v", "         X0068 = v", "         X0069 = v", "65 empty",
                           "        14/03/2026      Page 2"}));
}

TEST_F(PlantPrintTest, APageThatIsPhysicallyFullEndsWithItsFoot)
{
    makeEmptyGroup();
    for (int instrument = 1; instrument <= 30; ++instrument)
        makeParameters(4, instrument, 1); // three lines, of which two count
    const auto pages = print();
    ASSERT_EQ(pages.size(), 2u);
    for (const QStringList& page : pages) {
        EXPECT_LE(page.size(), 77);
        EXPECT_TRUE(page.back().contains("Page "));
    }
    EXPECT_EQ(pages[0].count(dashes) + pages[1].count(dashes), 30 + 2);
    EXPECT_EQ(pages[0].filter("X0000").size() + pages[1].filter("X0000").size(), 30);
}

TEST_F(PlantPrintTest, AWideRowGoesOnInTheNextLineWhichCounts)
{
    makeEmptyGroup();
    makeParameters(4, 1, 66);
    session.cnDatabase.Execute("UPDATE tbParametersUser SET Value = '" + QString(100, 'v') +
                               "' WHERE IDPar = 'X0010';");
    auto pages = print();
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0][4 + 2 + 10], "         X0010 = " + QString(77, 'v'));
    EXPECT_EQ(pages[0][4 + 2 + 11], QString(23, 'v'));
    makeParameters(4, 2, 1);
    pages = print();
    EXPECT_EQ(pages.size(), 2u);
}

TEST_F(PlantPrintTest, TheListsItemIsPrintedElseTheTreesNode)
{
    makeSmallPlant();
    standOn("1_4");
    structure.pressItem("2_4_7");
    EXPECT_EQ(print()[0].filter("Instrument: ").size(), 1);
    structure.clickNode("3_4_2_G01");
    structure.pressItem("4_4_2_G01_P0101");
    EXPECT_EQ(print()[0].filter(" = ").size(), 3); // the instrument of the parameter
    structure.clickNode("2_4_2");
    EXPECT_EQ(structure.selectedItem(), "");
    EXPECT_EQ(print()[0].filter("Instrument: ").size(), 1);
}

TEST_F(PlantPrintTest, WhatHasNoRowsIsToldAfterTheChoiceOfAPrinter)
{
    makeEmptyGroup();
    op.expect("The recordset is emty.");
    print();
    EXPECT_EQ(op.forms, QStringList({"modal frmPrinters"}));
    EXPECT_TRUE(printers.jobs.empty());
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
}

TEST_F(PlantPrintTest, AClosedWindowEndsQuietly)
{
    standOn("1_1");
    printer.Print_Item();
    EXPECT_EQ(op.forms, QStringList({"modal frmPrinters"}));
    EXPECT_TRUE(printers.jobs.empty());
}

TEST_F(PlantPrintTest, ThePreviewShowsTheSamePages)
{
    makeSmallPlant();
    standOn("1_4");
    op.onModal = [this](const QString&) {
        printing.preview("Office");
        printing.choose("Office", 1);
    };
    printer.Print_Item();
    ASSERT_EQ(printers.previews.size(), 1u);
    EXPECT_EQ(printers.previews[0].pages, printers.jobs[0].pages);
}

TEST_F(PlantPrintTest, EscapePrintsNothing)
{
    standOn("Root");
    op.escapeAfter = 1;
    op.expect("Current operation has been cancelled.");
    print();
    EXPECT_TRUE(printers.jobs.empty());
    EXPECT_EQ(op.escapeAfter, -1);
}

TEST_F(PlantPrintTest, SpeaksItsLanguage)
{
    makeSmallPlant();
    setLanguage("RU_Русский_6000");
    standOn("2_4_2");
    const QStringList page = print()[0];
    EXPECT_TRUE(page[3].startsWith(texts(243) + ": North"));
    EXPECT_TRUE(page[3].endsWith(texts(6) + " 0551"));
    EXPECT_TRUE(page[5].startsWith(texts(244) + ": Cold 1"));
    EXPECT_TRUE(page[5].endsWith(texts(2) + " 10"));
    EXPECT_EQ(page[6], "         РУ T1 = 12.3 °C");
    EXPECT_EQ(page.back(), "        14/03/2026      " + texts(283) + "1");
}

TEST_F(PlantPrintTest, NobodyLoggedInAndNothingSelectedPrintNothing)
{
    printer.Print_Item();
    ASSERT_TRUE(connectTo("Plant.mdb"));
    structure.clickNode("1_1");
    op.forms.clear();
    printer.Print_Item();
    EXPECT_TRUE(op.forms.isEmpty());
}

TEST_F(PlantPrintTest, APrinterThatVanishedFails)
{
    standOn("1_1");
    op.onModal = [this](const QString&) {
        printing.choose("Office", 1);
        printers.printers.clear();
    };
    printer.Print_Item();
    failures.expectOne(platform::errors::kDeviceIo, "Module/Print_Item");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

} // namespace
} // namespace exchange
