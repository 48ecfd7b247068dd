// The windows of the value history and of the comparison, driven as an operator drives them.
#include "gui/GuiFixture.h"
#include "history/NoteFile.h"
#include "history/widgets/ValuePlot.h"
#include "platform/TextFile.h"
#include "widgets/FormLanguage.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>

namespace {

using Qt::ControlModifier;
using Qt::ShiftModifier;

class HistoryWindow : public gui::GuiFixture
{
protected:
    QDialog* form() const { return qobject_cast<QDialog*>(desktop.form("frmHistory")); }
    template <class Part>
    Part* part(const char* name) const
    {
        return form()->findChild<Part*>(name);
    }
    QTreeView* list() const { return part<QTreeView>("lvwHistory"); }
    history::ValuePlot* plot() const { return part<history::ValuePlot>("plot"); }
    QString words() const { return part<QLabel>("lblCount")->text(); }
    QString cell(int row, int column) const { return list()->model()->index(row, column).data().toString(); }
    bool shows(int rows, const QString& said = {})
    {
        const QString expected = said.isEmpty() ? texts.own("history.count").arg(rows) : said;
        return QTest::qWaitFor([&] { return list()->model()->rowCount() == rows && words() == expected; });
    }
    void edit(const QString& IDPar, const QString& value,
              values::ValueCause cause = values::ValueCause::Edited)
    {
        const values::Causing causing(session.cnDatabase, cause);
        session.cnDatabase.Execute(
            QStringLiteral(
                "UPDATE tbParametersUser SET Value = '%1', State = 1 WHERE IDGrp = 1 AND IDInst = 1 "
                "AND IDPar = '%2';")
                .arg(value, IDPar));
        clock.run(60'000);
    }
    // On the list's selected item.
    void open(const QString& item)
    {
        window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        plant().pressItem(item);
        shownList()->setFocus();
        QTest::keyClick(shownList(), Qt::Key_H, ControlModifier);
        ASSERT_TRUE(form());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
    }
};

TEST_F(HistoryWindow, ShowsWhatAnOperatorChanged)
{
    start();
    clickNode("3_1_1_G01");
    edit("P0101", "5");
    edit("P0101", "6");
    open("4_1_1_G01_P0101");
    EXPECT_TRUE(shows(2)) << qPrintable(words());
    EXPECT_EQ(form()->windowTitle(), "Calidora\\Value history");
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\INST11\\Measures\\EN T1");
    EXPECT_EQ(cell(0, 3), "5.0 °C");
    EXPECT_EQ(cell(0, 4), "6.0 °C");
    EXPECT_TRUE(list()->isColumnHidden(1));
    EXPECT_TRUE(plot()->isVisible());
    // It is read again when the operator comes back.
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    edit("P0101", "7");
    form()->activateWindow();
    EXPECT_TRUE(shows(3));
    EXPECT_EQ(list()->currentIndex().row(), 1) << "what was selected stays so";
}

TEST_F(HistoryWindow, OfANodeByMenuPopupAndToolbar)
{
    start();
    edit("P0101", "5");
    clickNode("2_1_1");
    tvwBus()->setFocus();
    QTest::keyClick(tvwBus(), Qt::Key_H, ControlModifier);
    ASSERT_TRUE(form());
    EXPECT_TRUE(shows(1));
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\INST11");
    EXPECT_FALSE(list()->isColumnHidden(1));
    EXPECT_FALSE(plot()->isVisible());
    EXPECT_EQ(cell(0, 1), "GRP1\\INST11\\Measures");
    plant().pressItem("3_1_1_G02");
    button("History")->trigger();
    EXPECT_TRUE(shows(0, "No change has been noted here.")) << qPrintable(words());
    EXPECT_FALSE(part<QPushButton>("cmdSave")->isEnabled());
    EXPECT_TRUE(entry("frmListBus", "mnuBusHistory")->isEnabled());
    EXPECT_EQ(button("History")->toolTip(), "Value history");
}

TEST_F(HistoryWindow, IsNarrowedByTypingAndByTheBoxes)
{
    start();
    edit("P0101", "5");
    edit("P0201", "0", values::ValueCause::CheckedError);
    edit("P0102", "9");
    plant().selectNode("1_1");
    clickNode("1_1");
    open("2_1_1");
    EXPECT_TRUE(shows(3));
    auto* filter = part<QLineEdit>("txtNarrow");
    type(filter, "en mod");
    EXPECT_TRUE(shows(1));
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_TRUE(shows(3));
    part<QCheckBox>("chkFailed")->click();
    EXPECT_TRUE(shows(1));
    EXPECT_EQ(cell(0, 6), "Written, check Error!");
    part<QCheckBox>("chkFailed")->click();
    part<QCheckBox>("chkLast")->click();
    EXPECT_TRUE(shows(1));
    EXPECT_EQ(cell(0, 2), "EN T2");
}

TEST_F(HistoryWindow, EnterGoesToTheParameter)
{
    start();
    edit("P0201", "0");
    clickNode("Root");
    open("1_1");
    EXPECT_TRUE(shows(1));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0201");
    session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDPar = 'P0201';");
    plant().reloadList();
    part<QPushButton>("cmdShow")->click();
    EXPECT_EQ(words(), texts.own("find.gone"));
}

// An old value goes into the field, and nowhere else before it is saved there.
TEST_F(HistoryWindow, TakesAValueOver)
{
    start();
    clickNode("3_1_1_G02");
    edit("P0203", "1");
    edit("P0203", "0");
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    open("4_1_1_G02_P0203");
    EXPECT_TRUE(shows(3));
    list()->setCurrentIndex(list()->model()->index(2, 0));
    const auto stored = [this] {
        return support::column(plantFile(), "SELECT Value || State FROM tbParametersUser WHERE IDGrp = 1 AND "
                                            "IDInst = 1 AND IDPar = 'P0203'")[0];
    };
    inside("frmProperty", [&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox*>("cbxValEnum")->currentText(), "Lit");
        EXPECT_TRUE(dialog.findChild<QPushButton*>("cmdApply")->isEnabled());
        EXPECT_EQ(stored(), "00");
        dialog.reject();
    });
    part<QPushButton>("cmdTakeOver")->click();
    EXPECT_EQ(stored(), "00");
    inside("frmProperty", [&](QDialog& dialog) { dialog.findChild<QPushButton*>("cmdOK")->click(); });
    part<QPushButton>("cmdTakeOver")->click();
    EXPECT_EQ(stored(), "11");
    EXPECT_EQ(played, 2);
    // The next opening shows what is stored.
    inside("frmProperty",
           [&](QDialog& dialog) { EXPECT_FALSE(dialog.findChild<QPushButton*>("cmdApply")->isEnabled()); });
    program.handlers().run("Property");
}

TEST_F(HistoryWindow, WhoMayNotModifyTakesNothingOver)
{
    start();
    clickNode("3_1_1_G02");
    edit("P0203", "1");
    session.CurrentUser.Modify = "0";
    open("4_1_1_G02_P0203");
    EXPECT_TRUE(shows(1));
    EXPECT_FALSE(part<QPushButton>("cmdTakeOver")->isEnabled());
}

TEST_F(HistoryWindow, IsExported)
{
    start();
    clickNode("3_1_1_G01");
    edit("P0101", "5");
    open("4_1_1_G01_P0101");
    EXPECT_TRUE(shows(1));
    desktop.script.chooseFile(file("history.csv"));
    desktop.script.expect(texts(509));
    part<QPushButton>("cmdSave")->click();
    platform::TextReader saved(file("history.csv"), 1252);
    EXPECT_EQ(saved.ReadLine(), "Time,Where,Parameter,Before,After,Mark,Cause,Operator");
    EXPECT_TRUE(saved.ReadLine().endsWith(
        ",12.3 °C,5.0 °C,equal to the instrument → to be written,Edited,TECHNICIAN"));
    desktop.script.chooseFile({});
    desktop.script.expect(texts(502));
    part<QPushButton>("cmdSave")->click();
    desktop.script.chooseFile(file("no such folder/history.csv"));
    part<QPushButton>("cmdSave")->click();
    failures.expectUnder("frmHistory/Export_List");
}

TEST_F(HistoryWindow, ThePlotTellsTheValueUnderThePointer)
{
    start();
    clickNode("3_1_1_G01");
    edit("P0101", "5");
    edit("P0101", "8");
    open("4_1_1_G01_P0101");
    EXPECT_TRUE(shows(2));
    const auto& steps = plot()->plot().steps;
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_TRUE(plot()->words().startsWith("8.0 °C, "));
    const QPoint middle(plot()->placeOf((steps[1].from + steps[1].to) / 2), plot()->height() / 2);
    QMouseEvent moved(QEvent::MouseMove, middle, plot()->mapToGlobal(middle), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(plot(), &moved);
    EXPECT_TRUE(plot()->words().startsWith("5.0 °C, ")) << qPrintable(plot()->words());
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(plot(), &left);
    EXPECT_TRUE(plot()->words().startsWith("8.0 °C, "));
    plot()->setFocus();
    QTest::keyClick(plot(), Qt::Key_Home);
    EXPECT_TRUE(plot()->words().startsWith("12.3 °C, ")) << qPrintable(plot()->words());
    QTest::keyClick(plot(), Qt::Key_Left);
    EXPECT_TRUE(plot()->words().startsWith("12.3 °C, "));
    QTest::keyClick(plot(), Qt::Key_Right);
    EXPECT_TRUE(plot()->words().startsWith("5.0 °C, "));
    QTest::keyClick(plot(), Qt::Key_End);
    QTest::keyClick(plot(), Qt::Key_Right);
    EXPECT_TRUE(plot()->words().startsWith("8.0 °C, "));
    QTest::keyClick(plot(), Qt::Key_Left);
    EXPECT_TRUE(plot()->words().startsWith("5.0 °C, "));
    EXPECT_TRUE(plot()->accessibleDescription().contains("values: 3"));
    list()->setFocus();
    EXPECT_TRUE(plot()->words().startsWith("8.0 °C, ")) << "now, when nothing is pointed at";
}

// After a read the console offers what it has changed.
TEST_F(HistoryWindow, TheConsoleOffersWhatAReadHasChanged)
{
    start();
    clickNode("3_1_1_G01");
    edit("P0102", "9");
    const auto turn = [] {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    };
    plant().selectItem("4_1_1_G01_P0101");
    inside("frmReadWrite", [&](QDialog& console) {
        const auto command = [&](const char* name) {
            console.findChild<QAction*>(name)->trigger();
            turn();
        };
        auto* offer = console.findChild<QPushButton*>("cmdChanged");
        const auto answer = [&](const QByteArray& bytes) {
            command("mnuRead");
            EXPECT_FALSE(offer->isVisible());
            clock.run(3000);
            port.feed(bytes);
            clock.settle();
            clock.run(3000);
            turn();
        };
        EXPECT_FALSE(offer->isVisible());
        command("mnuSimulator");
        command("mnuConnect");
        port.feed("ATA");
        clock.settle();
        clock.run(3000);
        answer("\x64\x06");
        EXPECT_TRUE(offer->isVisible());
        EXPECT_EQ(offer->text(), "What changed: 1...");
        offer->click();
        ASSERT_TRUE(form());
        EXPECT_EQ(form()->parentWidget(), &console);
        EXPECT_TRUE(shows(1));
        EXPECT_EQ(cell(0, 3), "12.3 °C");
        EXPECT_EQ(cell(0, 4), "10.0 °C");
        EXPECT_EQ(part<QLabel>("lblElement")->text(),
                  "GRP1\\INST11\\Measures\\EN T1: what the last read has changed");
        picture(*form(), "what-changed");
        picture(console, "console-what-changed");
        console.activateWindow();
        answer("\x64\x06");
        EXPECT_EQ(offer->text(), "Nothing changed");
        EXPECT_FALSE(offer->isEnabled());
        command("mnuDisconnect");
        port.feed("\r");
        clock.settle();
        console.close();
    });
    program.handlers().run("ReadWrite");
    EXPECT_EQ(played, 1);
    EXPECT_TRUE(form()->isVisible());
    EXPECT_EQ(form()->parentWidget(), window());
}

TEST_F(HistoryWindow, TheStatusBarSaysThatNoHistoryIsKept)
{
    QFile damaged(history::historyFileOf(plantFile()));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(5000, 'x'));
    damaged.close();
    start();
    auto* panel = control<QWidget>("History");
    panel = window()->findChild<QStatusBar*>("staMain")->findChild<QWidget*>("History");
    EXPECT_FALSE(panel->isVisible());
    edit("P0101", "5");
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel->isVisible(); }));
    EXPECT_EQ(panel->findChild<QLabel*>("text")->text(), "No value history is kept");
    EXPECT_TRUE(panel->toolTip().contains("Plant.history"));
    picture(*window(), "no-history");
    EXPECT_EQ(support::column(plantFile(), "SELECT Value FROM tbParametersUser WHERE IDPar = 'P0101'")[0],
              "5");
    plant().selectNode("1_1");
    clickNode("1_1");
    open("2_1_1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().contains("Plant.history"); })) << qPrintable(words());
}

// Called up again while it reads and while it stands: it is one window, and shows what was asked for last.
TEST_F(HistoryWindow, CalledUpAgainItShowsTheOtherElement)
{
    start();
    clickNode("3_1_1_G01");
    edit("P0101", "5");
    edit("P0102", "9");
    edit("P0102", "8");
    open("4_1_1_G01_P0101");
    QDialog* const first = form();
    type(part<QLineEdit>("txtNarrow"), "5");
    plant().pressItem("4_1_1_G01_P0102");
    button("History")->trigger();
    EXPECT_EQ(form(), first);
    EXPECT_EQ(part<QLineEdit>("txtNarrow")->text(), "");
    EXPECT_EQ(list()->model()->rowCount(), 0) << "nothing of the other one stands under its name";
    EXPECT_FALSE(part<QPushButton>("cmdSave")->isEnabled());
    plant().pressItem("4_1_1_G01_P0101");
    button("History")->trigger();
    plant().pressItem("4_1_1_G01_P0102");
    button("History")->trigger();
    EXPECT_TRUE(shows(2));
    EXPECT_EQ(cell(0, 4), "8 °C");
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\INST11\\Measures\\EN T2");
    // The same element again keeps what was typed.
    type(part<QLineEdit>("txtNarrow"), "9");
    button("History")->trigger();
    EXPECT_EQ(part<QLineEdit>("txtNarrow")->text(), "9");
    EXPECT_TRUE(QTest::qWaitFor([&] { return list()->model()->rowCount() == 2; })) << "9 > 8 and -- > 9";
    form()->close();
    button("History")->trigger();
    EXPECT_TRUE(form()->isVisible());
}

TEST_F(HistoryWindow, GoesWithItsCompany)
{
    start();
    edit("P0101", "5");
    clickNode("1_1");
    open("2_1_1");
    EXPECT_TRUE(shows(1));
    desktop.script.expect("Confirm closing of current company?", platform::answers::kYes);
    program.handlers().run("CloseDb");
    EXPECT_FALSE(form());
}

TEST_F(HistoryWindow, SpeaksEveryLanguage)
{
    start();
    clickNode("3_1_1_G02");
    for (const char* value : {"0", "1", "0", "1"})
        edit("P0203", value);
    edit("P0203", "0", values::ValueCause::Read);
    open("4_1_1_G02_P0203");
    EXPECT_TRUE(shows(5));
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_TRUE(shows(5));
        EXPECT_EQ(form()->windowTitle(), "Calidora\\" + texts.own("history.title"));
        EXPECT_EQ(entry("frmTreeBus", "mnuHistory")->text(), texts.own("menu.history"));
        EXPECT_EQ(button("History")->toolTip(), texts.own("history.title"));
        EXPECT_EQ(cell(0, 6), texts.own("history.cause.read"));
        EXPECT_EQ(plot()->accessibleName(), texts.own("history.plot"));
        EXPECT_EQ(list()->accessibleName(), texts.own("history.title"));
        nothingIsClipped(*form());
        picture(*form(), "history-band");
    }
    plant().clickNode("3_1_1_G01");
    for (const char* value : {"5", "7.5", "7", "20", "18.5"})
        edit("P0101", value);
    plant().pressItem("4_1_1_G01_P0101");
    button("History")->trigger();
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\INST11\\Measures\\EN T1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 4) == "18.5 °C"; }));
    picture(*form(), "history");
    picture(*window(), "main-with-history");
    QPalette dark = QApplication::palette();
    dark.setColor(QPalette::Base, QColor("#1E2329"));
    dark.setColor(QPalette::Text, QColor("#E6EDF3"));
    dark.setColor(QPalette::Window, QColor("#171B20"));
    dark.setColor(QPalette::WindowText, QColor("#E6EDF3"));
    plot()->setPalette(dark);
    picture(*plot(), "history-dark");
}

// Compare
// -----------------------------------------------------------------------------------------------------------

class CompareWindow : public gui::GuiFixture
{
protected:
    QDialog* form() const { return qobject_cast<QDialog*>(desktop.form("frmCompare")); }
    template <class Part>
    Part* part(const char* name) const
    {
        return form()->findChild<Part*>(name);
    }
    QTreeView* list() const { return part<QTreeView>("lvwCompare"); }
    QString words() const { return part<QLabel>("lblCount")->text(); }
    bool says(const QString& counts)
    {
        return QTest::qWaitFor([&] { return words() == counts; });
    }
    QModelIndex row(int group, int place) const
    {
        return list()->model()->index(place, 0, list()->model()->index(group, 0));
    }
    void open(const QString& node)
    {
        clickNode(node);
        tvwBus()->setFocus();
        QTest::keyClick(tvwBus(), Qt::Key_C, ControlModifier | ShiftModifier);
        ASSERT_TRUE(form());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
    }
    void choose(int entry)
    {
        auto* with = part<QComboBox>("cbxWith");
        with->setCurrentIndex(entry);
        emit with->activated(entry);
    }
};

TEST_F(CompareWindow, WithTheDefaultsThenWithAnother)
{
    start();
    runOnPlant("UPDATE tbParametersUser SET Value = '9' WHERE IDGrp = 1 AND IDPar = 'P1101'");
    open("2_1_2");
    EXPECT_TRUE(says("Compared: 4, different: 2, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    EXPECT_EQ(form()->windowTitle(), "Calidora\\Compare");
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\ALPHA");
    EXPECT_EQ(part<QComboBox>("cbxWith")->itemText(1), "ALPHA\\inst21");
    EXPECT_EQ(row(0, 0).siblingAtColumn(1).data(), "9.0 °C");
    EXPECT_TRUE(list()->isFirstColumnSpanned(0, {})) << "a group's name has the whole row";
    EXPECT_EQ(list()->currentIndex(), row(0, 0)) << "the first difference";
    choose(1);
    EXPECT_TRUE(says("Compared: 4, different: 1, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    part<QCheckBox>("chkAll")->click();
    EXPECT_EQ(list()->model()->rowCount(list()->model()->index(0, 0)), 3);
    part<QCheckBox>("chkAll")->click();
    list()->setCurrentIndex(row(0, 0));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_1_2_G11_P1101");
    list()->setCurrentIndex(list()->model()->index(0, 0));
    EXPECT_FALSE(part<QPushButton>("cmdShow")->isEnabled()) << "a group is no parameter";
}

TEST_F(CompareWindow, WithACopyAndWithADataTrace)
{
    start();
    QFile::copy(plantFile(), file("Data/Old.bak"));
    runOnPlant("UPDATE tbParametersUser SET Value = '9' WHERE IDGrp = 1 AND IDPar = 'P1101'");
    open("1_1");
    auto* with = part<QComboBox>("cbxWith");
    const int company = with->count() - 2, trace = with->count() - 1;
    EXPECT_EQ(with->itemText(company), texts.own("compare.company"));
    desktop.script.chooseFile(file("Data/Old.bak"));
    choose(company);
    EXPECT_TRUE(says("Compared: 18, different: 1, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    EXPECT_EQ(list()->model()->headerData(2, Qt::Horizontal), "Old.bak: GRP1");
    // A cancel leaves what was chosen.
    desktop.script.chooseFile({});
    choose(trace);
    EXPECT_EQ(with->currentIndex(), company);
    EXPECT_EQ(list()->model()->headerData(2, Qt::Horizontal), "Old.bak: GRP1");

    desktop.script.chooseFile(file("Group.dat"), 3);
    desktop.script.expect(texts(509));
    plant().selectNode("1_1");
    program.handlers().run("Export");
    runOnPlant("UPDATE tbParametersUser SET Value = '8' WHERE IDGrp = 1 AND IDPar = 'P1102'");
    desktop.script.chooseFile(file("Group.dat"));
    choose(trace);
    EXPECT_TRUE(says("Compared: 18, different: 1, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    EXPECT_EQ(row(0, 0).siblingAtColumn(1).data(), "8 K");
    EXPECT_EQ(row(0, 0).siblingAtColumn(2).data(), "300 K");

    desktop.script.chooseFile(file("no such file.bak"));
    choose(company);
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().contains("no such file.bak"); })) << qPrintable(words());
    EXPECT_FALSE(part<QPushButton>("cmdPrint")->isEnabled());
}

TEST_F(CompareWindow, IsExportedAndPrinted)
{
    start();
    open("3_1_1_G01");
    EXPECT_TRUE(says("Compared: 7, different: 1, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    desktop.script.chooseFile(file("compare.csv"));
    desktop.script.expect(texts(509));
    part<QPushButton>("cmdSave")->click();
    platform::TextReader saved(file("compare.csv"), 1252);
    EXPECT_EQ(saved.ReadLine(), "Where,Parameter,GRP1\\INST11,Defaults of the catalogue,Outcome");
    EXPECT_EQ(saved.ReadLine(), "INST11\\Measures,EN T2,--,-10 °C,different");
    desktop.script.chooseFile(file("no such folder/compare.csv"));
    part<QPushButton>("cmdSave")->click();
    failures.expectUnder("frmCompare/Export_List");
    const auto print = [](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdPrint"), Qt::LeftButton);
    };
    inside("frmPrinters", print);
    part<QPushButton>("cmdPrint")->click();
    ASSERT_EQ(printers.jobs.size(), 1u);
    EXPECT_EQ(printers.jobs[0].title, "Compare: GRP1\\INST11\\Measures");
    EXPECT_EQ(printers.jobs[0].pages[0][0], "Compare: GRP1\\INST11\\Measures");
    inside("frmPrinters", [&](QDialog& dialog) {
        print(dialog);
        printers.printers.clear(); // it is switched off at this moment
    });
    part<QPushButton>("cmdPrint")->click();
    failures.expectUnder("frmCompare/Print_List");
}

TEST_F(CompareWindow, ShowsWhatHasChangedWhenTheOperatorComesBack)
{
    start();
    open("3_1_1_G01");
    EXPECT_TRUE(says("Compared: 7, different: 1, only on the left: 0, only on the right: 0"));
    part<QCheckBox>("chkAll")->click();
    const QModelIndex third = row(0, 2);
    const QString name = third.data().toString();
    list()->setCurrentIndex(third);
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    runOnPlant(
        "UPDATE tbParametersUser SET Value = '-77' WHERE IDGrp = 1 AND IDInst = 1 AND IDPar = 'P0101'");
    form()->activateWindow();
    EXPECT_TRUE(says("Compared: 7, different: 2, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
    EXPECT_EQ(list()->currentIndex().data(), name) << "what was selected stays so";
    // Another element begins anew.
    clickNode("3_1_1_G02");
    program.handlers().run("CompareNode");
    EXPECT_EQ(list()->model()->rowCount(), 0);
    EXPECT_FALSE(part<QPushButton>("cmdPrint")->isEnabled());
    EXPECT_FALSE(part<QPushButton>("cmdSave")->isEnabled());
    EXPECT_TRUE(says("Compared: 4, different: 0, only on the left: 0, only on the right: 0"))
        << qPrintable(words());
}

TEST_F(CompareWindow, GoesWithItsCompany)
{
    start();
    open("2_1_1");
    port.feed("hello");
    clock.settle();
    program.handlers().run("LineTrace");
    window()->activateWindow();
    desktop.script.expect("Confirm closing of current company?", platform::answers::kYes);
    program.handlers().run("CloseDb");
    EXPECT_FALSE(form());
    QTest::qWait(50); // what was being read comes back to nobody
    // What went over the line is nobody's company.
    program.handlers().run("LineTrace");
    ASSERT_TRUE(desktop.form("frmTrace"));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return desktop.form("frmTrace")->findChild<QTreeView*>("lvwTrace")->model()->rowCount() == 1;
    }));
}

TEST_F(CompareWindow, StandsWhereThereIsSomethingToCompare)
{
    start();
    clickNode("Root");
    EXPECT_FALSE(entry("frmTreeBus", "mnuCompare")->isEnabled());
    program.handlers().run("CompareNode");
    EXPECT_FALSE(form());
    clickNode("3_1_1_G01");
    EXPECT_TRUE(entry("frmTreeBus", "mnuCompare")->isEnabled());
    plant().pressItem("4_1_1_G01_P0101");
    EXPECT_FALSE(entry("frmListBus", "mnuCompare")->isEnabled());
    program.handlers().run("Compare");
    EXPECT_FALSE(form());
    clickNode("1_1");
    plant().pressItem("2_1_1");
    program.handlers().run("Compare");
    ASSERT_TRUE(form());
    EXPECT_EQ(part<QLabel>("lblElement")->text(), "GRP1\\INST11");
}

TEST_F(CompareWindow, ACompanyThatFailsIsTold)
{
    start();
    clickNode("2_1_1");
    session.cnDatabase.Execute("PRAGMA foreign_keys=OFF;");
    session.cnDatabase.Execute("DROP TABLE tbInstrumentsUser;");
    program.handlers().run("CompareNode");
    failures.expectUnder("frmCompare/Compare_With");
}

TEST_F(CompareWindow, SpeaksEveryLanguage)
{
    start();
    runOnPlant("UPDATE tbParametersUser SET Value = '9' WHERE IDGrp = 1");
    open("2_1_1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return list()->model()->rowCount() == 3; }));
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_TRUE(QTest::qWaitFor([&] { return words() != texts.own("pending.reading"); }));
        EXPECT_EQ(form()->windowTitle(), "Calidora\\" + texts.own("compare.title"));
        EXPECT_EQ(entry("frmTreeBus", "mnuCompare")->text(), texts.own("menu.compare"));
        EXPECT_EQ(part<QComboBox>("cbxWith")->itemText(0), texts.own("compare.defaults"));
        EXPECT_EQ(list()->accessibleName(), texts.own("compare.title"));
        nothingIsClipped(*form());
        picture(*form(), "compare");
    }
}

} // namespace
