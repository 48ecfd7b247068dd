#include "platform/widgets/DesktopPrinters.h"

#include "gui/GuiFixture.h"
#include "platform/PrintedPages.h"
#include "platform/widgets/PreviewWindow.h"
#include "support/FullDisk.h"
#include "support/Throws.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

using platform::PrintReport;
using support::errorOf;

class DesktopPrintersTest : public testing::Test
{
protected:
    QString file(const QString& name) const { return folder.filePath(name); }
    static PrintReport pages(int count, const QString& line)
    {
        return {"Plant", platform::Orientation::Portrait, [count, line](platform::Printer& paper) {
                    paper.setFont("Courier New");
                    paper.setFontSize(9);
                    for (int page = 0; page < count; ++page) {
                        if (page > 0)
                            paper.newPage();
                        paper.printLine(line);
                    }
                }};
    }
    // What the file says, a page after the other with form feeds between.
    static QString words(const QString& pdf)
    {
        QProcess reader;
        reader.start("pdftotext", {"-layout", "-enc", "UTF-8", pdf, "-"});
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput());
    }
    static bool canRead() { return !QStandardPaths::findExecutable("pdftotext").isEmpty(); }

    QTemporaryDir folder;
    platform::DesktopPrinters printers{[](const QString& key) { return key + " %1"; }};
};

TEST_F(DesktopPrintersTest, APdfFileHoldsThePagesAsSearchableText)
{
    if (!canRead())
        GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    printers.print(pages(2, "Температура подачи = 12.5 °C"), {"PDF file", 1, file("plant.pdf")});
    EXPECT_EQ(words(file("plant.pdf")).simplified(),
              "Температура подачи = 12.5 °C Температура подачи = 12.5 °C");
    EXPECT_EQ(words(file("plant.pdf")).count('\f'), 2);
}

TEST_F(DesktopPrintersTest, EightyOfTheTitlesAndSixtyEightRowsFitOnASheet)
{
    int columns = 0;
    double height = 0;
    PrintReport report = pages(1, "line");
    report.write = [&](platform::Printer& paper) {
        paper.setFont("Courier New");
        paper.setFontSize(10);
        columns = paper.columns();
        height = paper.heightLeft() - 5 * paper.lineHeight(10) - 70 * paper.lineHeight(9);
        const double before = paper.heightLeft();
        paper.printLine("x");
        EXPECT_NEAR(before - paper.heightLeft(), paper.lineHeight(10), 0.01);
        paper.newPage();
        EXPECT_DOUBLE_EQ(paper.heightLeft(), before);
    };
    printers.print(report, {"PDF file", 1, file("plant.pdf")});
    EXPECT_GE(columns, 80);
    EXPECT_LT(columns, 90);
    EXPECT_GE(height, 0);
    report.orientation = platform::Orientation::Landscape;
    printers.print(report, {"PDF file", 1, file("plant.pdf")});
    EXPECT_GE(columns, 122);
}

TEST_F(DesktopPrintersTest, TabsStandWhereTheyStandInText)
{
    if (!canRead())
        GTEST_SKIP() << "pdftotext (poppler-utils) is not installed";
    PrintReport report = pages(1, QString());
    report.write = [](platform::Printer& paper) {
        paper.setFont("Courier New");
        platform::PrintedPages printed(paper, {10, 9, 68});
        printed.beginPage({"0123456789012345678901234567890"});
        printed.row("\ta\tb");
        printed.finish();
    };
    printers.print(report, {"PDF file", 1, file("plant.pdf")});
    const QStringList lines = words(file("plant.pdf")).split('\n');
    EXPECT_LT(lines[1].indexOf('a'), lines[1].indexOf('b'));
}

TEST_F(DesktopPrintersTest, ABrokenOffReportLeavesTheFormerFile)
{
    QFile former(file("plant.pdf"));
    ASSERT_TRUE(former.open(QIODevice::WriteOnly));
    former.write("former");
    former.close();
    PrintReport report = pages(3, "line");
    report.write = [](platform::Printer& paper) {
        paper.printLine("line");
        platform::fail(platform::errors::kCancelled, "cancelled");
    };
    EXPECT_EQ(errorOf([&] {
                  printers.print(report, {"PDF file", 1, file("plant.pdf")});
              }),
              platform::errors::kCancelled);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList({"plant.pdf"}));
    ASSERT_TRUE(former.open(QIODevice::ReadOnly));
    EXPECT_EQ(former.readAll(), "former");
}

TEST_F(DesktopPrintersTest, AFileThatCannotBeWrittenFails)
{
    EXPECT_NE(errorOf([&] { printers.print(pages(1, "x"), {"PDF file", 1, file("no/plant.pdf")}); }), 0);
    const support::FullDisk full(4096);
    EXPECT_EQ(errorOf([&] {
                  printers.print(pages(500, "x"), {"PDF file", 1, file("plant.pdf")});
              }),
              platform::errors::kDiskFull);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(DesktopPrintersTest, APrinterThatIsNotThereFailsBeforeAPageIsMade)
{
    PrintReport report = pages(1, "x");
    report.write = [](platform::Printer&) { ADD_FAILURE() << "a page was made"; };
    EXPECT_EQ(errorOf([&] { printers.print(report, {"No such printer"}); }), platform::errors::kDeviceIo);
}

// The preview, closed by the operator as soon as its pages stand.
class Preview : public DesktopPrintersTest
{
protected:
    QString shown(const PrintReport& report)
    {
        QString title;
        QTimer closing;
        QObject::connect(&closing, &QTimer::timeout, [&] {
            auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!window || painted == 0)
                return;
            title = window->windowTitle();
            for (QAction* action : window->findChildren<QAction*>()) {
                if (action->isVisible() && !action->text().isEmpty())
                    actions << action->text();
            }
            window->reject();
        });
        closing.start(0);
        PrintReport counted = report;
        counted.write = [&](platform::Printer& paper) {
            ++painted;
            report.write(paper);
        };
        printers.preview(counted, {"PDF file"});
        return title;
    }

    int painted = 0;
    QStringList actions;
};

TEST_F(Preview, ShowsThePagesInTheProgramsWords)
{
    EXPECT_EQ(shown(pages(3, "line")), "preview.title %1: Plant");
    EXPECT_GE(painted, 1);
    EXPECT_TRUE(actions.contains("preview.larger %1"));
    for (const QString& word : actions)
        EXPECT_TRUE(word.startsWith("preview.")) << qPrintable(word);
    EXPECT_FALSE(actions.contains("preview.portrait %1"));
}

TEST_F(Preview, OfVeryManyPagesTheFirstAreShown)
{
    const int most = platform::PreviewWindow::kMostPages;
    EXPECT_EQ(shown(pages(most, "line")), "preview.title %1: Plant");
    painted = 0;
    EXPECT_EQ(shown(pages(most + 1, "line")), QStringLiteral("preview.begin %1").arg(most));
}

TEST_F(Preview, AReportThatFailsClosesIt)
{
    PrintReport report = pages(1, "x");
    report.write = [](platform::Printer&) { platform::fail(platform::errors::kCancelled, "cancelled"); };
    EXPECT_EQ(errorOf([&] { printers.preview(report, {"PDF file"}); }), platform::errors::kCancelled);
}

} // namespace
