#include "gui/GuiFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QListWidget>
#include <QToolBar>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

class Users : public gui::GuiFixture
{
protected:
    Users()
    {
        desktop.atTheGate = [this] { enterAs(support::kAdministrator); };
    }
    void insideUsers(const std::function<void(QDialog&)>& work)
    {
        played = 0;
        inside("frmUsers", work);
        entry("frmListBus", "mnuUsers")->trigger();
        EXPECT_GE(played, 1); // the list that a field opens counts, too
    }
    static QLineEdit* field(QDialog& dialog, const char* name) { return dialog.findChild<QLineEdit*>(name); }
    static void press(QDialog& dialog, const char* key)
    {
        dialog.findChild<QToolBar*>("tlbMain")->findChild<QAction*>(key)->trigger();
    }
    // The focus goes on, and what waits for that happens.
    static void leave(QLineEdit* field)
    {
        QTest::keyClick(field, Qt::Key_Return);
        QApplication::processEvents();
    }
};

TEST_F(Users, ShowsARecordAndStoresWhatIsChanged)
{
    start();
    insideUsers([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Customer Users");
        EXPECT_TRUE(field(dialog, "txtIDUser")->hasFocus());
        type(field(dialog, "txtIDUser"), "2");
        leave(field(dialog, "txtIDUser"));
        EXPECT_EQ(field(dialog, "txtUser")->text(), "GUEST");
        EXPECT_TRUE(field(dialog, "txtUser")->hasFocus());
        EXPECT_EQ(field(dialog, "txtUser")->selectedText(), "GUEST");
        EXPECT_EQ(field(dialog, "txtPwd")->text(), "Secret");
        EXPECT_EQ(field(dialog, "txtPwd")->echoMode(), QLineEdit::Normal);
        type(field(dialog, "txtUser"), "visitor");
        EXPECT_EQ(field(dialog, "txtUser")->text(), "VISITOR");
        type(field(dialog, "txtEMail"), "aB@c");
        EXPECT_EQ(field(dialog, "txtEMail")->text(), "aB@c");
        QTest::mouseClick(dialog.findChild<QCheckBox*>("chkModify"), Qt::LeftButton, {}, QPoint(8, 8));
        dialog.findChild<QListWidget*>("lbxState")->setCurrentRow(1);
        desktop.script.expect(texts(519), kYes);
        press(dialog, "Save");
        picture(dialog, "users");
    });
    EXPECT_EQ(support::column(plantFile(),
                              "SELECT Name || EMail || State || Modify FROM tbUsers WHERE IDUser = '2'"),
              QStringList{"VISITORaB@c1-1"});
}

TEST_F(Users, EscapePutsTheTextBackAndClosesNothing)
{
    start();
    insideUsers([](QDialog& dialog) {
        press(dialog, "Last");
        type(field(dialog, "txtUser"), "X");
        QTest::keyClick(field(dialog, "txtUser"), Qt::Key_Escape);
        EXPECT_EQ(field(dialog, "txtUser")->text(), "TECHNICIAN");
        QTest::keyClick(field(dialog, "txtUser"), Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(Users, TheAdministratorsRecordOpensThePasswordOnly)
{
    start();
    insideUsers([](QDialog& dialog) {
        press(dialog, "First");
        EXPECT_EQ(field(dialog, "txtUser")->text(), "ADMINISTRATOR");
        EXPECT_TRUE(field(dialog, "txtUser")->isReadOnly());
        EXPECT_TRUE(field(dialog, "txtPwd")->isEnabled() && !field(dialog, "txtPwd")->isReadOnly());
        for (const char* name : {"txtPhone", "txtFax", "txtMobilePhone", "txtEMail", "lbxState", "chkModify"})
            EXPECT_FALSE(dialog.findChild<QWidget*>(name)->isEnabled()) << name;
        press(dialog, "Next");
        EXPECT_TRUE(field(dialog, "txtPhone")->isEnabled());
        EXPECT_FALSE(field(dialog, "txtUser")->isReadOnly());
        press(dialog, "Back");
        EXPECT_EQ(field(dialog, "txtUser")->text(), "ADMINISTRATOR");
        press(dialog, "New");
        EXPECT_EQ(field(dialog, "txtUser")->text(), "");
        EXPECT_TRUE(field(dialog, "txtIDUser")->hasFocus());
    });
}

TEST_F(Users, ClosingAsksForWhatIsChangedAndARefusalStays)
{
    start();
    insideUsers([this](QDialog& dialog) {
        type(field(dialog, "txtUser"), "NEW");
        desktop.script.expect(texts(519), kYes);
        desktop.script.expect(texts(522));
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        desktop.script.expect(texts(519), kNo);
        press(dialog, "Exit");
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(Users, LeavingTheNumberOpensTheListAndClosingDoesNot)
{
    start();
    insideUsers([this](QDialog& dialog) {
        type(field(dialog, "txtIDUser"), "*");
        inside("frmZoom", [](QDialog& list) {
            EXPECT_EQ(list.windowTitle(), " Customer Users");
            QTest::keyClick(list.findChild<QWidget*>("lvwZoom"), Qt::Key_Down);
            QTest::keyClick(list.findChild<QWidget*>("lvwZoom"), Qt::Key_Return);
        });
        leave(field(dialog, "txtIDUser"));
        EXPECT_NE(field(dialog, "txtUser")->text(), "");
        type(field(dialog, "txtIDUser"), "9*");
        desktop.script.expect(texts(519), kNo);
        dialog.close();
        QApplication::processEvents();
    });
    EXPECT_FALSE(desktop.form("frmZoom"));
}

TEST_F(Users, CutsCopiesAndPastesInTheActiveField)
{
    start();
    insideUsers([](QDialog& dialog) {
        press(dialog, "Last");
        auto* name = field(dialog, "txtUser");
        name->setFocus();
        name->selectAll();
        dialog.findChild<QAction*>("mnuCut")->trigger();
        EXPECT_EQ(name->text(), "");
        EXPECT_EQ(QApplication::clipboard()->text(), "TECHNICIAN");
        dialog.findChild<QAction*>("mnuPaste")->trigger();
        EXPECT_EQ(name->text(), "TECHNICIAN");
        name->setSelection(0, 4);
        dialog.findChild<QAction*>("mnuCopy")->trigger();
        EXPECT_EQ(QApplication::clipboard()->text(), "TECH");
        name->setText("TECHNICIAN");
    });
    // the close asked nothing that was not expected: what is cut and pasted back is a change all the same
    desktop.script.unexpected.clear();
}

// Far too much, and what is no letter at all.
TEST_F(Users, NoFieldTakesMoreThanItHolds)
{
    start();
    insideUsers([](QDialog& dialog) {
        for (QLineEdit* text : dialog.findChildren<QLineEdit*>()) {
            for (const QString& pasted :
                 {QString(10000, 'x'), QString("'; DROP TABLE tbUsers; --"), QString::fromUtf8("Ёлка"),
                  QString::fromUtf8("\xF0\x9F\x94\xA7").repeated(81)}) {
                QApplication::clipboard()->setText(pasted);
                text->selectAll();
                text->paste();
                EXPECT_LE(text->text().size(), text->maxLength());
                EXPECT_TRUE(text->text().isEmpty() || !text->text().back().isHighSurrogate());
            }
            text->clear();
        }
        EXPECT_EQ(field(dialog, "txtIDUser")->maxLength(), 8);
        EXPECT_EQ(field(dialog, "txtUser")->maxLength(), 80);
    });
    desktop.script.unexpected.clear();
}

TEST_F(Users, TheIconsFollowTheMainWindow)
{
    start();
    insideUsers([this](QDialog& dialog) {
        dialog.findChild<QAction*>("mnuTlbSmallIcons")->trigger();
        EXPECT_EQ(dialog.findChild<QToolBar*>("tlbMain")->iconSize(), QSize(16, 16));
        EXPECT_EQ(control<QToolBar>("tlbMain")->iconSize(), QSize(16, 16));
        EXPECT_TRUE(dialog.findChild<QAction*>("mnuTlbSmallIcons")->isChecked());
        EXPECT_FALSE(dialog.findChild<QAction*>("mnuTlbLargeIcons")->isChecked());
    });
}

TEST_F(Users, SpeaksEveryLanguageAndClipsNothing)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        setLanguage(language);
        insideUsers([this](QDialog& dialog) {
            press(dialog, "Last");
            EXPECT_EQ(dialog.findChild<QListWidget*>("lbxState")->item(1)->text(), texts(99));
            EXPECT_EQ(dialog.findChild<QAction*>("mnuNew")->text(), texts(89));
            nothingIsClipped(dialog);
            const auto* toolbar = dialog.findChild<QToolBar*>("tlbMain");
            for (QAction* button : toolbar->actions())
                EXPECT_TRUE(toolbar->widgetForAction(button)->isVisible()) << qPrintable(button->text());
            const auto rightEdge = [&](const char* name) {
                const auto* part = dialog.findChild<QWidget*>(name);
                return part->mapTo(&dialog, part->rect().topRight()).x();
            };
            EXPECT_EQ(rightEdge("txtUser"), rightEdge("fraRights"));
            EXPECT_EQ(rightEdge("txtEMail"), rightEdge("fraRights"));
            picture(dialog, "users");
        });
    }
}

} // namespace
