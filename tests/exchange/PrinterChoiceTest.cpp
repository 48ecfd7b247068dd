#include "exchange/PrinterChoice.h"

#include "platform/RecordingPrinters.h"
#include "session/Printing.h"
#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

namespace {

using exchange::PrinterChoice;

// A machine whose printing system is down.
class BrokenPrinters : public platform::RecordingPrinters
{
public:
    std::vector<platform::PrinterInfo> installed() override { support::breakDown(); }
    void preview(const platform::PrintReport&, const platform::PrintOrder&) override { support::breakDown(); }
};

class PrinterChoiceTest : public support::CompanyFixture
{
protected:
    PrinterChoiceTest()
    {
        printers.printers = {{"beta", "usb", "Two"}, {"Alpha", "lan", "three"}, {"gamma", "LAN", "One"}};
        printers.standard = "Alpha";
    }
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < choice.rowCount(); ++row)
            names << choice.index(row, 0).data().toString();
        return names;
    }
    // The window stands over a report; what the operator does in it.
    bool within(const std::function<void()>& work)
    {
        op.onModal = [work](const QString&) { work(); };
        const platform::PrintReport report{"Plant", platform::Orientation::Portrait,
                                           [](platform::Printer& paper) { paper.printLine("line"); }};
        return printing.print(report);
    }

    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
    PrinterChoice choice{{session, texts, op, printing}};
};

TEST_F(PrinterChoiceTest, ListsTheSystemsPrintersWithTheirColumns)
{
    choice.Load();
    EXPECT_EQ(names(), QStringList({"beta", "Alpha", "gamma", "PDF file"}));
    EXPECT_EQ(choice.index(0, 1).data(), "usb");
    EXPECT_EQ(choice.index(0, 2).data(), "Two");
    EXPECT_EQ(choice.headerData(0, Qt::Horizontal, Qt::DisplayRole), "Nome");
    EXPECT_EQ(choice.headerData(1, Qt::Horizontal, Qt::DisplayRole), "Porta");
    EXPECT_EQ(choice.headerData(2, Qt::Horizontal, Qt::DisplayRole), "Device");
    EXPECT_FALSE(choice.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    EXPECT_EQ(choice.columnCount(), 3);
    EXPECT_FALSE(choice.index(0, 0).data(Qt::DecorationRole).isValid());
    EXPECT_EQ(choice.txtPrtDft(), "Alpha");
    EXPECT_EQ(choice.txtPrt(), "Alpha");
    EXPECT_EQ(choice.txtCopie(), "1");
}

TEST_F(PrinterChoiceTest, AColumnSortsAndTheSecondClickTurnsTheOrder)
{
    choice.Load();
    EXPECT_EQ(choice.sortColumn(), -1);
    choice.ColumnClick(0);
    EXPECT_EQ(names(), QStringList({"Alpha", "beta", "gamma", "PDF file"}));
    EXPECT_TRUE(choice.sortAscending());
    choice.ColumnClick(0);
    EXPECT_EQ(names(), QStringList({"PDF file", "gamma", "beta", "Alpha"}));
    EXPECT_FALSE(choice.sortAscending());
    choice.ColumnClick(2);
    EXPECT_EQ(names(), QStringList({"gamma", "PDF file", "Alpha", "beta"}));
    EXPECT_EQ(choice.sortColumn(), 2);
    choice.Load();
    EXPECT_EQ(names(), QStringList({"beta", "Alpha", "gamma", "PDF file"}));
    EXPECT_EQ(choice.sortColumn(), -1);
}

TEST_F(PrinterChoiceTest, EqualOnesKeepTheirOrder)
{
    choice.Load();
    choice.ColumnClick(1);
    EXPECT_EQ(names(), QStringList({"PDF file", "Alpha", "gamma", "beta"}));
    choice.ColumnClick(1);
    EXPECT_EQ(names(), QStringList({"beta", "Alpha", "gamma", "PDF file"}));
}

TEST_F(PrinterChoiceTest, FindsAPrinterByItsName)
{
    choice.Load();
    EXPECT_EQ(choice.IndexPrinter("gamma"), 2);
    EXPECT_EQ(choice.IndexPrinter("beta"), 0);
    EXPECT_EQ(choice.IndexPrinter("delta"), PrinterChoice::kNone);
    choice.ColumnClick(0);
    EXPECT_EQ(choice.IndexPrinter("gamma"), 2);
}

TEST_F(PrinterChoiceTest, PrintsOnTheChosenOneInSoManyCopies)
{
    EXPECT_TRUE(within([this] {
        choice.Load();
        choice.choose(2);
        choice.choose(4);  // nothing stands there
        choice.choose(-1); // nor here
        choice.setCopies(" 12 ");
        EXPECT_TRUE(choice.Print());
    }));
    ASSERT_EQ(printers.jobs.size(), 1u);
    EXPECT_EQ(printers.jobs[0].order.printer, "gamma");
    EXPECT_EQ(printers.jobs[0].order.copies, 12);
}

TEST_F(PrinterChoiceTest, TheLeastAndTheMostCopiesAreTaken)
{
    for (const char* copies : {"1", "999"}) {
        EXPECT_TRUE(within([&] {
            choice.Load();
            choice.setCopies(copies);
            EXPECT_TRUE(choice.Print());
        }));
        EXPECT_EQ(printers.jobs.back().order.copies, QString(copies).toInt());
    }
}

TEST_F(PrinterChoiceTest, OtherCopiesAreRefusedAndTheWindowStays)
{
    choice.Load();
    for (const char* copies : {"0", "1000", "abc", "", "-1", "1.5", "99999999999"}) {
        choice.setCopies(copies);
        op.expect("Attention! The number of copies must be included between 1 and 999.");
        EXPECT_FALSE(choice.Print()) << copies;
        EXPECT_EQ(choice.txtCopie(), copies);
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        EXPECT_EQ(op.boxes.back().title, "Calidora");
    }
}

TEST_F(PrinterChoiceTest, APrinterThatVanishedIsToldAndTheWindowStays)
{
    choice.Load();
    printers.printers.erase(printers.printers.begin() + 1);
    op.expect("The printer Alpha is not there any more.");
    EXPECT_FALSE(choice.Print());
    choice.choose(2);
    EXPECT_TRUE(choice.Print());
}

TEST_F(PrinterChoiceTest, TheArrowsStayInTheRange)
{
    choice.Load();
    choice.step(-1);
    EXPECT_EQ(choice.txtCopie(), "1");
    choice.step(1);
    EXPECT_EQ(choice.txtCopie(), "2");
    choice.setCopies("999");
    choice.step(1);
    EXPECT_EQ(choice.txtCopie(), "999");
    choice.step(-1);
    EXPECT_EQ(choice.txtCopie(), "998");
    choice.setCopies("abc");
    choice.step(1);
    EXPECT_EQ(choice.txtCopie(), "1");
}

TEST_F(PrinterChoiceTest, AMachineWithoutAPrinterOffersThePdfFile)
{
    printers.printers.clear();
    printers.standard.clear();
    choice.Load();
    EXPECT_EQ(names(), QStringList({"PDF file"}));
    EXPECT_EQ(choice.txtPrt(), "PDF file");
}

TEST_F(PrinterChoiceTest, ThePreviewIsOfTheChosenPrinter)
{
    EXPECT_FALSE(within([this] {
        choice.Load();
        choice.choose(0);
        choice.preview();
    }));
    ASSERT_EQ(printers.previews.size(), 1u);
    EXPECT_EQ(printers.previews[0].order.printer, "beta");
}

TEST_F(PrinterChoiceTest, EachProcedureFailsUnderItsOwnName)
{
    BrokenPrinters broken;
    session::Printing printing{session, texts, op, broken};
    PrinterChoice choice{{session, texts, op, printing}};
    choice.Load();
    failures.expectOne(platform::errors::kDeviceIo, "frmPrinters.Load");
    op.onModal = [&](const QString&) { choice.preview(); };
    printing.print({"Plant", platform::Orientation::Portrait, [](platform::Printer&) {}});
    failures.expectOne(platform::errors::kDeviceIo, "frmPrinters.cmdPreview_Click");
    choice.IndexPrinter("Alpha");
    failures.expectOne(platform::errors::kDeviceIo, "frmPrinters/IndexPrinter");

    setLanguage(support::kNoLanguage);
    this->choice.setCopies("0");
    EXPECT_FALSE(this->choice.Print());
    failures.expectOne(platform::errors::kOutOfRange, "frmPrinters.cmdPrint_Click");
}

} // namespace
