// A plant is built and edited in the real windows, once with the mouse alone and once with the keys alone, in
// every language. (What is typed is typed in both.)
#include "gui/GuiFixture.h"

#include <QComboBox>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>

using platform::answers::kYes;

namespace {

enum class Means
{
    Mouse,
    Keys
};

using Case = std::tuple<const char*, Means>;

class Jobs : public gui::GuiFixture, public testing::WithParamInterface<Case>
{
protected:
    Jobs()
    {
        runOnPlant("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P1101';"
                   "UPDATE tbParam SET mIDCopy = 'CP.02.01' WHERE mID = 'P1102';"
                   "UPDATE tbParam SET mIDCopy = 'CP.03.01' WHERE mID = 'P1103';");
        for (const char* block : {"CP.02.01", "CP.03.01"}) {
            for (const char* language : {"EN", "IT", "RU"})
                runOnPlant(QStringLiteral("INSERT INTO tbParamCopyLanguage VALUES ('%1', '%2', 'Block %1')")
                               .arg(block, language));
        }
        setLanguage(std::get<0>(GetParam()));
        session.ListBusSet.View = 3;
        start();
    }

    bool byMouse() const { return std::get<1>(GetParam()) == Means::Mouse; }

    // Walking
    // ---------------------------------------------------------------------------------------------------

    void tabTo(QWidget* wanted)
    {
        // No window manager is here to do it behind a dialog.
        wanted->window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
        for (int tabs = 0; tabs < 60 && QApplication::focusWidget() != wanted; ++tabs)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), wanted) << qPrintable(wanted->objectName());
    }
    // From the root down, one level after the other.
    void goToNode(const QString& key)
    {
        if (byMouse())
            return clickNode(key);
        tabTo(tvwBus());
        QTest::keyClick(tvwBus(), Qt::Key_Home);
        QStringList way{key};
        const auto& tree = plant().tree();
        for (QModelIndex node = tree.indexOf(key).parent(); node.isValid(); node = node.parent())
            way.prepend(tree.keyOf(node));
        for (const QString& step : way) {
            for (int downs = 0; downs < 50 && tree.keyOf(tvwBus()->currentIndex()) != step; ++downs)
                QTest::keyClick(tvwBus(), Qt::Key_Down);
            if (!tvwBus()->isExpanded(tvwBus()->currentIndex()))
                QTest::keyClick(tvwBus(), Qt::Key_Right);
        }
        EXPECT_EQ(plant().selectedNode(), key);
    }
    void goToItem(const QString& key)
    {
        if (byMouse())
            return clickItem(key);
        tabTo(shownList());
        QTest::keyClick(shownList(), Qt::Key_End);
        QTest::keyClick(shownList(), Qt::Key_Home);
        for (int downs = 0; downs < 50 && plant().selectedItem() != key; ++downs)
            QTest::keyClick(shownList(), Qt::Key_Down);
        EXPECT_EQ(plant().selectedItem(), key);
    }

    // Commands
    // --------------------------------------------------------------------------------------------------

    // A button of a toolbar under the mouse; by keys the entry of the menus instead.
    void command(QWidget* form, const QString& key, const QString& menu, const QString& name)
    {
        if (!byMouse())
            return chooseByKeys(form, menu, name);
        auto* toolbar = form->findChild<QToolBar*>("tlbMain");
        auto* button =
            toolbar->widgetForAction(toolbar->findChild<QAction*>(key, Qt::FindDirectChildrenOnly));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static QMenuBar* menuBarOf(QWidget* form)
    {
        auto* main = qobject_cast<program::frmMain*>(form);
        return main ? main->menuBar() : form->findChild<QMenuBar*>();
    }
    static QAction* named(const QList<QAction*>& actions, const QString& name)
    {
        for (QAction* action : actions) {
            if (action->objectName() == name || (action->menu() && action->menu()->objectName() == name))
                return action;
        }
        return nullptr;
    }
    void chooseByMouse(QWidget* form, const QString& menu, const QString& name)
    {
        QMenuBar* bar = menuBarOf(form);
        QAction* title = named(bar->actions(), menu);
        ASSERT_TRUE(title) << qPrintable(menu);
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(title).center());
        QAction* entry = named(title->menu()->actions(), name);
        ASSERT_TRUE(entry) << qPrintable(name);
        QTest::mouseClick(title->menu(), Qt::LeftButton, {}, title->menu()->actionGeometry(entry).center());
    }
    // Alt, right to the menu, down to the entry, Enter.
    void chooseByKeys(QWidget* form, const QString& menu, const QString& name)
    {
        QMenuBar* bar = menuBarOf(form);
        QAction* title = named(bar->actions(), menu);
        ASSERT_TRUE(title) << qPrintable(menu);
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt);
        for (int rights = 0; rights < 10 && bar->activeAction() != title; ++rights)
            QTest::keyClick(bar, Qt::Key_Right);
        ASSERT_EQ(bar->activeAction(), title) << qPrintable(menu);
        QTest::keyClick(bar, Qt::Key_Down);
        QMenu* popup = title->menu();
        ASSERT_TRUE(QTest::qWaitFor([popup] { return popup->isVisible(); })) << qPrintable(menu);
        QAction* entry = named(popup->actions(), name);
        for (int downs = 0; downs < 30 && popup->activeAction() != entry; ++downs)
            QTest::keyClick(popup, Qt::Key_Down);
        ASSERT_EQ(popup->activeAction(), entry) << qPrintable(name);
        QTest::keyClick(popup, Qt::Key_Return);
    }
    void choose(QWidget* form, const QString& menu, const QString& name)
    {
        byMouse() ? chooseByMouse(form, menu, name) : chooseByKeys(form, menu, name);
    }

    // In the dialogs
    // --------------------------------------------------------------------------------------------

    void fill(QDialog& dialog, const QString& name, const QString& text)
    {
        auto* field = dialog.findChild<QLineEdit*>(name);
        if (byMouse())
            QTest::mouseClick(field, Qt::LeftButton);
        else
            tabTo(field);
        type(field, text);
    }
    void pressOK(QDialog& dialog)
    {
        if (byMouse())
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        else
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    }
    void openProperty(const QString& key, const std::function<void(QDialog&)>& work)
    {
        inside("frmProperty", [this, work](QDialog& dialog) {
            nothingIsClipped(dialog);
            work(dialog);
        });
        const bool isParameter = key.startsWith('4'); // a double click walks into all others
        if (byMouse() && isParameter)
            return openItem(key);
        goToItem(key);
        if (byMouse())
            return command(window(), "Property", "mnuCommands", "mnuProperty");
        QTest::keyClick(shownList(), Qt::Key_Return);
    }
    void pick(QAbstractItemView* list, int row)
    {
        const QRect place = list->visualRect(list->model()->index(row, 0));
        if (byMouse()) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place.center());
            return;
        }
        QTest::keyClick(list, Qt::Key_Home);
        for (int downs = 0; downs < 20 && list->currentIndex().row() != row; ++downs)
            QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    }

    // The list drops down under the click; the mouse goes to the row, since it takes no click where it came
    // up.
    static void pickByMouse(QComboBox* box, int row)
    {
        QTest::mouseClick(box, Qt::LeftButton);
        QWidget* rows = box->view()->viewport();
        ASSERT_TRUE(QTest::qWaitFor([rows] { return rows->isVisible(); }));
        const QPointF place = box->view()->visualRect(box->model()->index(row, 0)).center();
        QMouseEvent move(QEvent::MouseMove, place, rows->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(rows, &move);
        QTest::mouseClick(rows, Qt::LeftButton, {}, place.toPoint());
        EXPECT_EQ(box->currentIndex(), row);
    }

    QStringList plantRows(const QString& sql) { return support::column(plantFile(), sql); }
    QString valueOf(const QString& IDPar)
    {
        return plantRows(
                   "SELECT IfNull(Value, 'NULL') || '|' || State FROM tbParametersUser WHERE IDGrp = 1 AND "
                   "IDInst = 2 AND IDPar = '" +
                   IDPar + "'")
            .value(0);
    }
};

TEST_P(Jobs, AGroupAndAnInstrumentAreCreatedNamedAndDeleted)
{
    goToNode("Root");
    desktop.script.expect(texts(584), kYes);
    inside("frmProperty", [this](QDialog& dialog) {
        picture(dialog, "property-group");
        nothingIsClipped(dialog);
        fill(dialog, "txtValStr1", "o'hara");
        fill(dialog, "txtValStr2", "камера 1");
        fill(dialog, "txtValStr3", "055 1");
        pressOK(dialog);
    });
    command(window(), "New", "mnuCommands", "mnuNew");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(
        plantRows("SELECT Name || '|' || Description || '|' || Phone FROM tbGroupsUser WHERE IDGrp = 4"),
        QStringList{"O'HARA|КАМЕРА 1|055 1"});
    EXPECT_EQ(plant().list().item("1_4")->text, "O'HARA");

    goToNode("1_4");
    inside("frmZoom", [this](QDialog& dialog) {
        picture(dialog, "zoom");
        nothingIsClipped(dialog);
        pick(dialog.findChild<QTreeView*>("lvwZoom"), 1);
        EXPECT_FALSE(dialog.isVisible());
    });
    inside("frmProperty", [this](QDialog& dialog) {
        picture(dialog, "property-instrument");
        nothingIsClipped(dialog);
        fill(dialog, "txtValStr1", "showcase 1");
        fill(dialog, "txtVal3", "12");
        pressOK(dialog);
    });
    command(window(), "New", "mnuCommands", "mnuNew");
    EXPECT_EQ(played, 3);
    EXPECT_EQ(
        plantRows("SELECT IDItem || '|' || Name || '|' || Address FROM tbInstrumentsUser WHERE IDGrp = 4"),
        QStringList{"KT200|SHOWCASE 1|2C"});
    picture(*window(), "main");

    goToItem("2_4_1");
    desktop.script.expect(texts(506), kYes);
    if (byMouse())
        command(window(), "Delete", "mnuCommands", "mnuDelete");
    else
        QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_EQ(listKeys(), QStringList());
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbParametersUser WHERE IDGrp = 4"), QStringList{"0"});

    goToNode("1_4");
    desktop.script.expect(texts(506), kYes);
    if (byMouse())
        chooseByMouse(window(), "mnuCommands", "mnuDelete");
    else
        QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_FALSE(plant().tree().contains("1_4"));
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbGroupsUser WHERE IDGrp = 4"), QStringList{"0"});
}

TEST_P(Jobs, ValuesOfEveryKindAreEdited)
{
    goToNode("3_1_1_G02");
    openProperty("4_1_1_G02_P0204", [this](QDialog& dialog) {
        picture(dialog, "property-string");
        fill(dialog, "txtValStr1", "it's 5%");
        pressOK(dialog);
    });
    EXPECT_EQ(plant().list().item("4_1_1_G02_P0204")->subtext, "IT'S 5%");
    openProperty("4_1_1_G02_P0201", [this](QDialog& dialog) {
        picture(dialog, "property-enum");
        auto* list = dialog.findChild<QComboBox*>("cbxValEnum");
        if (byMouse()) {
            pickByMouse(list, 0);
        } else {
            tabTo(list);
            QTest::keyClick(list, Qt::Key_Home);
        }
        pressOK(dialog);
    });
    EXPECT_EQ(plantRows("SELECT Value || '|' || State FROM tbParametersUser WHERE IDPar = 'P0201'"),
              QStringList{"0|1"});

    goToNode("3_1_1_G03");
    const std::pair<const char*, QStringList> times[] = {
        {"P0301", {"23"}}, {"P0302", {"1", "2"}}, {"P0303", {"4", "5", "6"}}};
    for (const auto& [IDPar, numbers] : times) {
        openProperty(QString("4_1_1_G03_") + IDPar, [&, numbers = numbers](QDialog& dialog) {
            picture(dialog, QStringLiteral("property-time%1").arg(numbers.size()));
            for (int i = 0; i < numbers.size(); ++i)
                fill(dialog, QStringLiteral("txtVal%1").arg(i + 1), numbers[i]);
            pressOK(dialog);
        });
    }
    EXPECT_EQ(plantRows("SELECT Value FROM tbParametersUser WHERE IDParGrp = 'G03' ORDER BY IDPar"),
              (QStringList{"23:00:00", "01:02:00", "04:05:06"}));

    goToNode("3_1_2_G11");
    openProperty("4_1_2_G11_P1101", [this](QDialog& dialog) {
        picture(dialog, "property-real");
        if (byMouse())
            QTest::mouseClick(dialog.findChild<QWidget*>("updVal1")->findChild<QToolButton*>("up"),
                              Qt::LeftButton);
        else
            QTest::keyClick(dialog.findChild<QLineEdit*>("txtVal1"), Qt::Key_Up);
        pressOK(dialog);
    });
    EXPECT_EQ(valueOf("P1101"), "5.5|1");
    openProperty("4_1_2_G11_P1101", [this](QDialog& dialog) {
        fill(dialog, "txtVal1", "20,2");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("txtVal1")->text(), "20,2");
        pressOK(dialog);
    });
    EXPECT_EQ(valueOf("P1101"), "20.5|1");
    EXPECT_EQ(plant().list().item("4_1_2_G11_P1101")->subtext, "20.5 °C");

    goToNode("2_1_1");
    openProperty("3_1_1_G02", [this](QDialog& dialog) {
        picture(dialog, "property-parametergroup");
        pressOK(dialog);
    });
    EXPECT_EQ(played, 8);
    picture(*window(), "main-parameters");
}

TEST_P(Jobs, BlocksAreCopied)
{
    goToNode("3_1_2_G11");
    openProperty("4_1_2_G11_P1101", [this](QDialog& dialog) {
        inside("frmPropertyCopy", [this](QDialog& window) {
            EXPECT_EQ(window.windowTitle(), "Calidora\\Copia Proprietà");
            auto* list = window.findChild<QTreeView*>("lvwItems");
            desktop.script.expect(texts(532));
            command(&window, "Copy", "mnuCommands", "mnuCopy");
            if (byMouse()) {
                const QRect row = list->visualRect(list->model()->index(0, 0));
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
            } else {
                tabTo(list);
                QTest::keyClick(list, Qt::Key_Space);
            }
            picture(window, "copy");
            nothingIsClipped(window);
            command(&window, "Copy", "mnuCommands", "mnuCopy");
            EXPECT_EQ(valueOf("P1102"), "4.5|1");
            EXPECT_EQ(valueOf("P1103"), "0|2");
            command(&window, "Check", "mnuCommands", "mnuCheck");
            desktop.script.expect(texts(533) + "\r\n" + texts(534), kYes);
            command(&window, "Copy", "mnuCommands", "mnuCopy");
            EXPECT_EQ(valueOf("P1103"), "4.5|1");
            command(&window, "Uncheck", "mnuCommands", "mnuUncheck");
            EXPECT_EQ(list->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
            command(&window, "Exit", "mnuFile", "mnuExit");
            EXPECT_FALSE(window.isVisible());
        });
        auto* copy = dialog.findChild<QPushButton*>("cmdCopy");
        if (byMouse()) {
            QTest::mouseClick(copy, Qt::LeftButton);
        } else {
            tabTo(copy);
            QTest::keyClick(copy, Qt::Key_Space);
        }
    });
    EXPECT_EQ(played, 2);
    EXPECT_EQ(plant().list().item("4_1_2_G11_P1103")->icon, 6);
}

TEST_P(Jobs, AValueIsFoundInTheListAndInThePlant)
{
    goToNode("3_1_1_G01");
    if (byMouse())
        chooseByMouse(window(), "mnuView", "mnuFilter");
    else
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    auto* filter = control<QLineEdit>("txtFilter");
    ASSERT_EQ(QApplication::focusWidget(), filter);
    type(filter, "T1");
    EXPECT_TRUE(QTest::qWaitFor([this] { return listKeys() == QStringList{"4_1_1_G01_P0101"}; }));
    picture(*window(), "main-filter");
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_EQ(listKeys().size(), 7);

    if (byMouse())
        chooseByMouse(window(), "mnuView", "mnuFind");
    else
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QWidget* form = desktop.form("frmFind");
    ASSERT_TRUE(form && QTest::qWaitForWindowActive(form));
    auto* words = form->findChild<QLineEdit*>("txtFind");
    auto* found = form->findChild<QTreeView*>("lvwFound");
    type(words, "room 1");
    ASSERT_TRUE(QTest::qWaitFor([found] { return found->model()->rowCount() == 1; }));
    picture(*form, "find");
    nothingIsClipped(*form);
    if (byMouse())
        pick(found, 0);
    else
        QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0204");
    QTest::keyClick(words, Qt::Key_Escape);
    EXPECT_FALSE(desktop.form("frmFind") && desktop.form("frmFind")->isVisible());
}

TEST_P(Jobs, WhatWaitsToBeWrittenIsListed)
{
    goToNode("Root");
    if (byMouse())
        chooseByMouse(window(), "mnuView", "mnuPending");
    else
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QWidget* form = desktop.form("frmPending");
    ASSERT_TRUE(form && QTest::qWaitForWindowActive(form));
    auto* list = form->findChild<QTreeView*>("lvwPending");
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->model()->rowCount() == 3; }));
    picture(*form, "pending");
    nothingIsClipped(*form);
    if (!byMouse())
        tabTo(list);
    pick(list, 2);
    EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0201");
}

INSTANTIATE_TEST_SUITE_P(Everywhere, Jobs,
                         testing::Combine(testing::Values("EN_English_2000", "IT_Italiano_1000",
                                                          "RU_Russian_6000"),
                                          testing::Values(Means::Mouse, Means::Keys)),
                         [](const testing::TestParamInfo<Case>& info) {
                             return std::string(std::get<0>(info.param)).substr(0, 2) +
                                    (std::get<1>(info.param) == Means::Mouse ? "byMouse" : "byKeys");
                         });

} // namespace
