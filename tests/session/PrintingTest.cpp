#include "session/Printing.h"

#include "platform/RecordingPrinters.h"
#include "support/CompanyFixture.h"
#include "support/Throws.h"

namespace {

using platform::answers::kOk;

class PrintingTest : public support::CompanyFixture
{
protected:
    // The operator takes a printer in the window that comes up.
    void choosing(const QString& printer, int copies = 1)
    {
        op.onModal = [this, printer, copies](const QString& form) {
            EXPECT_EQ(form, "frmPrinters");
            printing.choose(printer, copies);
        };
    }
    platform::PrintReport report{"Plant: \"North\"/1", platform::Orientation::Landscape,
                                 [this](platform::Printer& paper) {
                                     EXPECT_EQ(op.pointer, platform::Pointer::Hourglass);
                                     paper.printLine("line");
                                 }};
    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
};

TEST_F(PrintingTest, PrintsOnTheChosenPrinter)
{
    choosing("Office", 3);
    EXPECT_TRUE(printing.print(report));
    ASSERT_EQ(printers.jobs.size(), 1u);
    EXPECT_EQ(printers.jobs[0].order.printer, "Office");
    EXPECT_EQ(printers.jobs[0].order.copies, 3);
    EXPECT_EQ(printers.jobs[0].order.file, "");
    EXPECT_EQ(printers.jobs[0].orientation, platform::Orientation::Landscape);
    EXPECT_EQ(printers.jobs[0].pages[0], QStringList({"line"}));
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PrintingTest, AClosedWindowPrintsNothingAndSaysNothing)
{
    choosing("Office");
    EXPECT_TRUE(printing.print(report));
    op.onModal = {};
    EXPECT_FALSE(printing.print(report));
    EXPECT_EQ(printers.jobs.size(), 1u);
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PrintingTest, NothingToPrintIsFoundOutAfterTheChoice)
{
    choosing("Office");
    EXPECT_FALSE(printing.print(report, [this] { return op.forms.isEmpty(); }));
    EXPECT_TRUE(printers.jobs.empty());
}

TEST_F(PrintingTest, ThePdfFileIsAlwaysTheLastOfThePrinters)
{
    const auto all = printing.printers();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].name, "Office");
    EXPECT_EQ(all[1].name, "PDF file");
    EXPECT_EQ(printing.defaultPrinter(), "Office");
    printers.printers.clear();
    printers.standard.clear();
    EXPECT_EQ(printing.printers().size(), 1u);
    EXPECT_EQ(printing.defaultPrinter(), "PDF file");
}

TEST_F(PrintingTest, ThePdfFileAsksForItsName)
{
    session.DirExport = file("Data");
    choosing("PDF file");
    op.chooseFile(file("Log/plant.pdf"));
    EXPECT_TRUE(printing.print(report));
    ASSERT_EQ(op.fileRequests.size(), 1u);
    EXPECT_EQ(op.fileRequests[0].title, "Save as");
    EXPECT_EQ(op.fileRequests[0].filter, "PDF (*.pdf)|*.pdf");
    EXPECT_EQ(op.fileRequests[0].fileName, "Plant North1.pdf");
    EXPECT_EQ(op.fileRequests[0].folder, file("Data"));
    EXPECT_EQ(printers.jobs[0].order.file, file("Log/plant.pdf"));
    EXPECT_EQ(session.DirExport, file("Log"));
}

TEST_F(PrintingTest, APdfFileWithoutANameIsCancelled)
{
    session.DirExport = file("Gone");
    choosing("PDF file");
    op.chooseFile({});
    op.expect("Current operation has been cancelled.", kOk);
    EXPECT_FALSE(printing.print(report));
    EXPECT_EQ(op.fileRequests[0].folder, file("Log"));
    EXPECT_EQ(session.DirExport, file("Gone"));
    EXPECT_TRUE(printers.jobs.empty());
}

TEST_F(PrintingTest, APrinterThatVanishedMeanwhileFails)
{
    op.onModal = [this](const QString&) {
        printing.choose("Office", 1);
        printers.printers.clear();
    };
    EXPECT_EQ(support::errorOf([this] { printing.print(report); }), platform::errors::kDeviceIo);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PrintingTest, ThePreviewShowsTheReportOfTheWindow)
{
    report.write = [](platform::Printer& paper) { paper.printLine("line"); };
    op.onModal = [this](const QString&) { printing.preview("Office"); };
    EXPECT_FALSE(printing.print(report));
    ASSERT_EQ(printers.previews.size(), 1u);
    EXPECT_EQ(printers.previews[0].order.printer, "Office");
    EXPECT_TRUE(printers.jobs.empty());
    printing.preview("Office"); // no window stands any more
    EXPECT_EQ(printers.previews.size(), 1u);
}

TEST_F(PrintingTest, NoPreviewOfNothing)
{
    op.onModal = [this](const QString&) { printing.preview("Office"); };
    EXPECT_FALSE(printing.print(report, [] { return false; }));
    EXPECT_TRUE(printers.previews.empty());
}

TEST_F(PrintingTest, APreviewThatIsBrokenOffIsTold)
{
    report.write = [](platform::Printer&) { platform::fail(platform::errors::kCancelled, "cancelled"); };
    op.onModal = [this](const QString&) { printing.preview("Office"); };
    op.expect("Current operation has been cancelled.", kOk);
    EXPECT_FALSE(printing.print(report));
    report.write = [](platform::Printer&) { platform::fail(platform::errors::kDeviceIo, "broken"); };
    EXPECT_EQ(support::errorOf([this] { printing.print(report); }), platform::errors::kDeviceIo);
}

} // namespace
