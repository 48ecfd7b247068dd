#include "gui/GuiFixture.h"
#include "widgets/FormLanguage.h"

#include <QHeaderView>
#include <QPushButton>
#include <QToolButton>

namespace {

class Printers : public gui::GuiFixture
{
protected:
    Printers() { printers.printers = {{"Workshop", "usb", "Inkwell 3"}, {"Office", "ipp", "LaserMark 20"}}; }
    // A report goes to print; the operator works in the window that comes up.
    bool print(const std::function<void(QDialog&)>& work)
    {
        inside("frmPrinters", work);
        return program.printing().print({"Plant", platform::Orientation::Portrait,
                                         [](platform::Printer& paper) { paper.printLine("x"); }});
    }
    static QLineEdit* field(QDialog& form, const QString& name) { return form.findChild<QLineEdit*>(name); }
    static QTreeView* list(QDialog& form) { return form.findChild<QTreeView*>("lvwPrinters"); }
    static void click(QDialog& form, const QString& name)
    {
        QTest::mouseClick(form.findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
};

TEST_F(Printers, TheSystemsOwnIsChosenAndEnterPrints)
{
    start();
    EXPECT_TRUE(print([this](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), "Calidora\\Print");
        EXPECT_EQ(field(form, "txtPrt")->text(), "Office");
        EXPECT_EQ(field(form, "txtPrtDft")->text(), "Office");
        EXPECT_FALSE(field(form, "txtPrtDft")->isVisible());
        EXPECT_EQ(list(form)->currentIndex().row(), 1);
        EXPECT_EQ(field(form, "txtCopie")->text(), "1");
        picture(form, "frmPrinters");
        nothingIsClipped(form);
        QTest::keyClick(list(form), Qt::Key_Return);
    }));
    ASSERT_EQ(printers.jobs.size(), 1u);
    EXPECT_EQ(printers.jobs[0].order.printer, "Office");
    EXPECT_EQ(printers.jobs[0].order.copies, 1);
}

TEST_F(Printers, AnotherPrinterAndMoreCopies)
{
    start();
    EXPECT_TRUE(print([](QDialog& form) {
        QTest::keyClick(list(form), Qt::Key_Up);
        EXPECT_EQ(field(form, "txtPrt")->text(), "Workshop");
        type(field(form, "txtCopie"), "12");
        QTest::keyClick(field(form, "txtCopie"), Qt::Key_Up);
        EXPECT_EQ(field(form, "txtCopie")->text(), "13");
        QTest::mouseClick(form.findChild<QWidget*>("vsbCopie")->findChild<QWidget*>("down"), Qt::LeftButton);
        EXPECT_EQ(field(form, "txtCopie")->text(), "12");
        click(form, "cmdPrint");
    }));
    EXPECT_EQ(printers.jobs[0].order.printer, "Workshop");
    EXPECT_EQ(printers.jobs[0].order.copies, 12);
}

TEST_F(Printers, WrongCopiesKeepTheWindowAndTheField)
{
    start();
    EXPECT_FALSE(print([this](QDialog& form) {
        type(field(form, "txtCopie"), "1000");
        desktop.script.expect("Attention! The number of copies must be included between 1 and 999.");
        click(form, "cmdPrint");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(field(form, "txtCopie")->text(), "1000");
        EXPECT_EQ(field(form, "txtCopie")->selectedText(), "1000");
        EXPECT_TRUE(field(form, "txtCopie")->hasFocus());
        click(form, "cmdClose");
        EXPECT_FALSE(form.isVisible());
    }));
    EXPECT_TRUE(printers.jobs.empty());
}

TEST_F(Printers, EscapeFirstPutsTheCopiesBackThenCloses)
{
    start();
    EXPECT_FALSE(print([](QDialog& form) {
        type(field(form, "txtCopie"), "7");
        QTest::keyClick(field(form, "txtCopie"), Qt::Key_Escape);
        EXPECT_EQ(field(form, "txtCopie")->text(), "1");
        EXPECT_TRUE(form.isVisible());
        QTest::keyClick(field(form, "txtCopie"), Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    }));
}

TEST_F(Printers, ADoubleClickPrintsThere)
{
    start();
    EXPECT_TRUE(print([](QDialog& form) {
        const QPoint first = list(form)->visualRect(list(form)->model()->index(0, 0)).center();
        QTest::mouseClick(list(form)->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(list(form)->viewport(), Qt::LeftButton, {}, first);
    }));
    EXPECT_EQ(printers.jobs[0].order.printer, "Workshop");
}

TEST_F(Printers, AColumnSortsAndTheChoiceStays)
{
    start();
    print([](QDialog& form) {
        QHeaderView* header = list(form)->header();
        const auto clickHeader = [header](int column) {
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              {header->sectionViewportPosition(column) + 10, header->height() / 2});
        };
        clickHeader(0);
        EXPECT_EQ(list(form)->model()->index(0, 0).data(), "Office");
        EXPECT_EQ(list(form)->currentIndex().row(), 0);
        EXPECT_EQ(field(form, "txtPrt")->text(), "Office");
        clickHeader(0);
        EXPECT_EQ(list(form)->model()->index(0, 0).data(), "Workshop");
        EXPECT_EQ(field(form, "txtPrt")->text(), "Office");
    });
}

TEST_F(Printers, TheListComesWithItsColumnsOrWithout)
{
    start();
    print([](QDialog& form) {
        EXPECT_FALSE(list(form)->isHeaderHidden());
        form.findChild<QAction*>("mnuViewList")->trigger();
        EXPECT_TRUE(list(form)->isHeaderHidden());
        EXPECT_TRUE(list(form)->isColumnHidden(1));
        EXPECT_TRUE(list(form)->isColumnHidden(2));
        form.findChild<QAction*>("mnuViewDetails")->trigger();
        EXPECT_FALSE(list(form)->isHeaderHidden());
        EXPECT_FALSE(list(form)->isColumnHidden(1));
    });
}

TEST_F(Printers, ThePreviewComesBeforeThePaper)
{
    start();
    EXPECT_TRUE(print([this](QDialog& form) {
        click(form, "cmdPreview");
        EXPECT_EQ(printers.previews.size(), 1u);
        EXPECT_TRUE(form.isVisible());
        click(form, "cmdPrint");
    }));
}

TEST_F(Printers, SpeaksEveryLanguage)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000"}) {
        setLanguage(language);
        print([this](QDialog& form) {
            EXPECT_EQ(form.windowTitle(), "Calidora\\" + texts(161));
            EXPECT_EQ(form.findChild<QPushButton*>("cmdPrint")->text(), texts(161));
            EXPECT_EQ(form.findChild<QLabel*>("lblCopie")->text(), texts(162));
            EXPECT_EQ(field(form, "txtCopie")->toolTip(), texts(163));
            EXPECT_EQ(form.findChild<QAction*>("mnuViewList")->text(), texts(133));
            EXPECT_EQ(form.findChild<QPushButton*>("cmdPreview")->text(), texts.own("printers.preview"));
            EXPECT_EQ(list(form)->model()->index(2, 0).data(), texts.own("printers.pdf"));
            nothingIsClipped(form);
            picture(form, "frmPrinters");
        });
    }
}

} // namespace
