// What "Find in company" and "Pending writes" have in common, and the small print of each.
#include "gui/GuiFixture.h"
#include "widgets/FormLanguage.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

class ResultWindows : public gui::GuiFixture
{
protected:
    QWidget* form(const char* name) const { return desktop.form(name); }
    QWidget* find() const { return form("frmFind"); }
    QWidget* pending() const { return form("frmPending"); }
    static QPushButton* pushButton(QWidget* form, const char* name)
    {
        return form->findChild<QPushButton*>(name);
    }
    static QTreeView* list(QWidget* form)
    {
        return form->findChild<QTreeView*>(form->objectName() == "frmFind" ? "lvwFound" : "lvwPending");
    }
    static QString words(QWidget* form)
    {
        return form->findChild<QLabel*>(form->objectName() == "frmFind" ? "lblFound" : "lblPending")->text();
    }
    QLineEdit* field() const { return find()->findChild<QLineEdit*>("txtFind"); }
    static bool says(QWidget* form, const QString& expected)
    {
        return QTest::qWaitFor([&] { return words(form) == expected; });
    }
    // The shortcuts are the main window's.
    void toMainWindow()
    {
        window()->activateWindow();
        // A window counts as active while one that belongs to it is; the shortcuts see the difference.
        ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == window(); }));
    }
    void openFind()
    {
        toMainWindow();
        QTest::keyClick(window(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(find());
        ASSERT_TRUE(QTest::qWaitForWindowActive(find()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return field()->hasFocus(); }));
    }
    void openPending()
    {
        toMainWindow();
        QTest::keyClick(window(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(pending());
        ASSERT_TRUE(QTest::qWaitForWindowActive(pending()));
    }
    bool counts(int number) { return says(pending(), texts.own("pending.count").arg(number)); }
    bool finds(int number) { return says(find(), texts.own("find.found").arg(number)); }
    QString cell(QWidget* form, int row, int column)
    {
        return list(form)->model()->index(row, column).data().toString();
    }
};

// As behind a backup or an upgrade: what they show is of the company as it was.
TEST_F(ResultWindows, GoWhenTheCompanyIsOpenedAnew)
{
    start();
    clickNode("1_1");
    const std::pair<const char*, const char*> kWindows[] = {{"Find", "frmFind"},
                                                            {"Pending", "frmPending"},
                                                            {"HistoryNode", "frmHistory"},
                                                            {"CompareNode", "frmCompare"}};
    for (const auto& [command, name] : kWindows) {
        toMainWindow();
        program.handlers().run(command);
        ASSERT_TRUE(form(name)) << name;
    }
    ASSERT_TRUE(program.database().reconnect());
    for (const auto& [command, name] : kWindows)
        EXPECT_FALSE(form(name)) << name;
}

TEST_F(ResultWindows, ASearchTellsWhereItStands)
{
    start();
    openFind();
    EXPECT_FALSE(pushButton(find(), "cmdShow")->isEnabled());
    QTest::keyClick(field(), 'x');
    EXPECT_EQ(words(find()), texts.own("find.searching"));
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(words(find()), texts.own("find.hint"));
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(finds(2));
    EXPECT_TRUE(pushButton(find(), "cmdShow")->isEnabled());
    field()->clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return list(find())->model()->rowCount() == 0; }));
    EXPECT_FALSE(pushButton(find(), "cmdShow")->isEnabled());
    EXPECT_EQ(words(find()), texts.own("find.hint"));
    const auto* label = find()->findChild<QLabel*>("lblFound");
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_TRUE(label->wordWrap());
}

TEST_F(ResultWindows, MoreThanAListHoldsIsTold)
{
    QString sql = "BEGIN;";
    for (int i = 0; i < 203; ++i)
        sql += QString("INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (%1, 'CROWD');").arg(100 + i);
    runOnPlant(sql + "COMMIT;");
    start();
    openFind();
    QTest::keyClicks(field(), "crowd");
    EXPECT_TRUE(says(find(), texts.own("find.more").arg(200).arg(3)));
}

TEST_F(ResultWindows, AFileThatCannotBeReadIsTold)
{
    start();
    openFind();
    openPending();
    EXPECT_TRUE(counts(3));
    session.DbName = "None.mdb";
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(QTest::qWaitFor([this] { return words(find()).contains("None.mdb"); }));
    pushButton(pending(), "cmdRefresh")->click();
    EXPECT_TRUE(QTest::qWaitFor([this] { return words(pending()).contains("None.mdb"); }));
    EXPECT_TRUE(list(pending())->isVisible()) << "an empty list that says why, not that nothing waits";
    EXPECT_FALSE(pushButton(pending(), "cmdShow")->isEnabled());
    session.DbName.clear();
    field()->setText("beta");
    EXPECT_TRUE(says(find(), texts.own("find.hint"))) << "no company, nothing to search";
    session.DbName = "Plant.mdb";
}

// Whoever types on after Enter has changed his mind.
TEST_F(ResultWindows, TypingOnTakesTheEnterBack)
{
    start();
    openFind();
    QTest::keyClicks(field(), "inst1");
    QTest::keyClick(field(), Qt::Key_Return);
    QTest::keyClick(field(), '1');
    EXPECT_TRUE(finds(1));
    EXPECT_EQ(plant().selectedItem(), "");
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "2_1_1");
}

TEST_F(ResultWindows, TheArrowsWalkThroughTheResultsAndOtherKeysStayInTheField)
{
    start();
    openFind();
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(finds(2));
    EXPECT_EQ(list(find())->currentIndex().row(), 0);
    const std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Down, 1}, {Qt::Key_Up, 0}, {Qt::Key_PageDown, 1}, {Qt::Key_PageUp, 0}};
    for (const auto& [key, row] : keys) {
        QTest::keyClick(field(), key);
        EXPECT_EQ(list(find())->currentIndex().row(), row) << key;
    }
    field()->setCursorPosition(0);
    QTest::keyClick(field(), Qt::Key_End);
    EXPECT_EQ(field()->cursorPosition(), 5);
    EXPECT_EQ(list(find())->currentIndex().row(), 0);
    EXPECT_EQ(field()->text(), "alpha");
}

TEST_F(ResultWindows, TheSelectionStaysWhenTheResultsComeAfresh)
{
    start();
    openPending();
    EXPECT_TRUE(counts(3));
    list(pending())->setCurrentIndex(list(pending())->model()->index(1, 0));
    pushButton(pending(), "cmdRefresh")->click();
    EXPECT_EQ(words(pending()), texts.own("pending.reading"));
    EXPECT_TRUE(counts(3));
    EXPECT_EQ(list(pending())->currentIndex().row(), 1);
    pushButton(pending(), "cmdShow")->click();
    EXPECT_EQ(plant().selectedItem(), "4_1_2_G11_P1101");
}

TEST_F(ResultWindows, AHeaderSortsTheResultsAndTurnsTheOrder)
{
    start();
    openPending();
    EXPECT_TRUE(counts(3));
    const auto click = [&](int column) {
        QHeaderView* header = list(pending())->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 10, header->height() / 2});
    };
    click(0);
    EXPECT_EQ(cell(pending(), 0, 0), "EN MOD");
    click(0);
    EXPECT_EQ(cell(pending(), 2, 0), "EN MOD");
    click(2);
    EXPECT_EQ(cell(pending(), 0, 2), "ALPHA\\inst21\\Settings");
}

TEST_F(ResultWindows, NothingWaitingIsAPageOfItsOwn)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0;");
    start();
    openPending();
    auto* nothing = pending()->findChild<QLabel*>("lblNothing");
    EXPECT_TRUE(QTest::qWaitFor([&] { return nothing->isVisible(); }));
    EXPECT_EQ(nothing->text(), texts.own("pending.nothing"));
    EXPECT_TRUE(says(pending(), ""));
    EXPECT_FALSE(list(pending())->isVisible());
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201';");
    // Whoever comes back finds it read again.
    toMainWindow();
    pending()->activateWindow();
    EXPECT_TRUE(counts(1));
    EXPECT_TRUE(list(pending())->isVisible());
    EXPECT_FALSE(nothing->isVisible());
}

TEST_F(ResultWindows, AResultThatIsGoneIsTold)
{
    start();
    openPending();
    EXPECT_TRUE(counts(3));
    const QString selected = plant().selectedItem();
    session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDGrp = 2;");
    emit list(pending())->activated(list(pending())->model()->index(0, 0));
    EXPECT_EQ(words(pending()), texts.own("find.gone"));
    EXPECT_EQ(plant().selectedItem(), selected);
}

TEST_F(ResultWindows, TheirButtonsCloseThem)
{
    start();
    openFind();
    pushButton(find(), "cmdClose")->click();
    EXPECT_FALSE(find()->isVisible());
    openPending();
    pushButton(pending(), "cmdClose")->click();
    EXPECT_FALSE(pending()->isVisible());
}

TEST_F(ResultWindows, ValuesAndNamesFollowTheLanguage)
{
    start();
    openFind();
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(finds(2));
    openPending();
    EXPECT_TRUE(counts(3));
    for (const char* language : {"IT_Italiano_1000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_TRUE(counts(3));
        EXPECT_TRUE(finds(2));
        EXPECT_EQ(cell(pending(), 2, 0), session.Language.Code + " MOD");
        for (QWidget* each : {find(), pending()}) {
            EXPECT_EQ(pushButton(each, "cmdShow")->text(), texts.own("find.show"));
            EXPECT_EQ(pushButton(each, "cmdClose")->text(), texts.own("find.close"));
            EXPECT_EQ(list(each)->model()->headerData(1, Qt::Horizontal).toString(), texts(107));
            EXPECT_EQ(list(each)->model()->headerData(2, Qt::Horizontal).toString(), texts.own("find.place"));
        }
        EXPECT_EQ(pushButton(pending(), "cmdRefresh")->text(), texts.own("pending.refresh"));
        EXPECT_EQ(pushButton(pending(), "cmdRefresh")->shortcut(), QKeySequence(Qt::Key_F5));
        EXPECT_EQ(pending()->findChild<QLabel*>("lblNothing")->text(), texts.own("pending.nothing"));
    }
}

TEST_F(ResultWindows, NoButtonOfTheirsTakesTheEnterKeyOfTheField)
{
    start();
    openFind();
    openPending();
    for (QWidget* each : {find(), pending()}) {
        for (const QPushButton* button : each->findChildren<QPushButton*>())
            EXPECT_FALSE(button->autoDefault()) << qPrintable(button->objectName());
    }
}

} // namespace
