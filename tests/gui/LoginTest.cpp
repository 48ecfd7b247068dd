#include "gui/GuiFixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QMenuBar>
#include <QSignalSpy>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

// The login in its real window. What is played there runs inside the modal window.
class LoginWindow : public gui::GuiFixture
{
protected:
    LoginWindow() { desktop.atTheGate = nullptr; }

    using Play = std::function<void(QDialog&)>;

    // Starts the program, which comes to rest in the login.
    void startAndPlay(const Play& play, const QString& company = "Plant.mdb")
    {
        session.DbName = company;
        session.COMPort = {};
        ASSERT_TRUE(session::Write_Configuration(session));
        atTheLogin(play);
        goesOn = program.run();
        EXPECT_EQ(played, 1) << "the login never came up";
    }
    // Plays in the next login; one still open at the end is closed by its window button.
    void atTheLogin(const Play& play)
    {
        played = 0;
        auto* waiting = new QTimer(&clockwork);
        QObject::connect(waiting, &QTimer::timeout, waiting, [this, waiting, play] {
            auto* dialog = qobject_cast<QDialog*>(desktop.form("frmLogInOut"));
            if (!dialog || !dialog->isVisible())
                return;
            waiting->stop();
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            play(*dialog);
            ++played;
            if (dialog->isVisible())
                dialog->close();
            waiting->deleteLater();
        });
        waiting->start(0);
    }
    static QComboBox* users(QDialog& dialog) { return dialog.findChild<QComboBox*>("cbxUser"); }
    static QLineEdit* password(QDialog& dialog) { return dialog.findChild<QLineEdit*>("txtPwd"); }
    static void press(QDialog& dialog, const char* button)
    {
        QTest::mouseClick(dialog.findChild<QAbstractButton*>(button), Qt::LeftButton);
    }
    static void logIn(QDialog& dialog, const QString& name, const QString& typed = {})
    {
        users(dialog)->setCurrentText(name);
        type(password(dialog), typed);
        press(dialog, "cmdConnect");
    }
    // As with no company, but for "Enter".
    void expectTheGateClosed()
    {
        EXPECT_EQ(session.CurrentUser.IDUser, "");
        EXPECT_EQ(window()->windowTitle(), "Calidora - Database: Plant.mdb");
        EXPECT_EQ(operatorShown(), texts.own("panel.nobody"));
        EXPECT_TRUE(tvwBus()->isEnabled());
        for (const char* key : {"Refresh", "Property", "View", "Parent", "New", "ReadWrite", "Expand"})
            EXPECT_FALSE(button(key)->isEnabled()) << key;
        EXPECT_TRUE(button("Enter")->isEnabled());
        for (const char* form : {"frmTreeBus", "frmListBus"}) {
            for (const char* name :
                 {"mnuCommands", "mnuRefresh", "mnuProperty", "mnuFind", "mnuPending", "mnuFilter"})
                EXPECT_FALSE(entry(form, name)->isEnabled()) << name;
            EXPECT_TRUE(entry(form, "mnuEnter")->isEnabled());
            EXPECT_TRUE(entry(form, "mnuExit")->isEnabled());
        }
    }
    QString operatorShown()
    {
        return control<QWidget>("User")->isVisible()
                   ? control<QWidget>("User")->findChild<QLabel*>("text")->text()
                   : QString();
    }
    void logInAgain(const Play& play)
    {
        desktop.script.expect(texts(513) + "\r\n" + texts(514), kYes);
        atTheLogin(play);
        button("Enter")->trigger();
        EXPECT_EQ(played, 1);
    }

    QObject clockwork;
    bool goesOn = false;
};

TEST_F(LoginWindow, ComesUpAtTheStartOverClosedMenus)
{
    startAndPlay([this](QDialog& dialog) {
        expectTheGateClosed();
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\LogOn-LogOff");
        EXPECT_TRUE(users(dialog)->hasFocus());
        EXPECT_EQ(users(dialog)->currentText(), "");
        EXPECT_EQ(users(dialog)->count(), 4);
        EXPECT_EQ(password(dialog)->echoMode(), QLineEdit::Password);
        EXPECT_EQ(password(dialog)->maxLength(), 8);
        EXPECT_TRUE(dialog.findChild<QLineEdit*>("txtCompany")->isReadOnly());
        EXPECT_FALSE(port.PortOpen()) << "the port opens behind the login";
        picture(dialog, "login");
        logIn(dialog, "TECHNICIAN");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(goesOn);
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(session.CurrentUser.IDUser, "1");
    EXPECT_EQ(window()->windowTitle(), "Calidora - Database: Plant.mdb - User: TECHNICIAN");
    EXPECT_EQ(operatorShown(), "TECHNICIAN");
    for (const char* key : {"Refresh", "Property", "View"})
        EXPECT_TRUE(button(key)->isEnabled()) << key;
    EXPECT_FALSE(button("New")->isEnabled());
    EXPECT_TRUE(entry("frmTreeBus", "mnuNew")->isEnabled()) << "the root is selected in the tree";
    EXPECT_FALSE(entry("frmListBus", "mnuNew")->isEnabled());
    EXPECT_TRUE(entry("frmListBus", "mnuFind")->isEnabled());
    EXPECT_FALSE(desktop.form("frmLogInOut"));
}

// The rules of the tree hold from the first key on.
TEST_F(LoginWindow, InsertMakesNothingForWhoMayNotModify)
{
    startAndPlay([](QDialog& dialog) { logIn(dialog, "GUEST", "Secret"); });
    tvwBus()->setFocus();
    QTest::keyClick(tvwBus(), Qt::Key_Insert);
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_TRUE(desktop.script.boxes.empty());
}

TEST_F(LoginWindow, ClosedByItsButtonItLeavesTheCompanyOpenForWalkingOnly)
{
    startAndPlay([](QDialog& dialog) { dialog.close(); });
    EXPECT_TRUE(goesOn);
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(session.DbName, "Plant.mdb");
    expectTheGateClosed();
    clickNode("1_1");
    EXPECT_EQ(listKeys().size(), 2);
    openItem("2_1_1");
    EXPECT_EQ(program.structure().selectedNode(), "2_1_1");
    expectTheGateClosed();
    QTest::keyClick(shownList(), Qt::Key_Return);
    QTest::keyClick(shownList(), Qt::Key_Insert);
    QTest::keyClick(shownList(), Qt::Key_Delete);
    QTest::keyClick(shownList(), Qt::Key_F5);
    QTest::keyClick(shownList(), Qt::Key_F, Qt::ControlModifier);
    clickNode("3_1_1_G01");
    openItem(listKeys().first());
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_TRUE(desktop.script.boxes.empty());
    EXPECT_FALSE(desktop.form("frmProperty"));
    EXPECT_FALSE(control<QWidget>("txtFilter")->isVisible());

    logInAgain([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    EXPECT_TRUE(button("Property")->isEnabled());
    EXPECT_EQ(listKeys(), QStringList{"Root"});
}

TEST_F(LoginWindow, AWrongPasswordStaysInTheWindow)
{
    startAndPlay([this](QDialog& dialog) {
        desktop.script.expect(texts(523));
        logIn(dialog, "GUEST", "secret");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(password(dialog)->hasFocus());
        EXPECT_EQ(password(dialog)->selectedText(), "secret");
        desktop.script.expect(texts(523));
        users(dialog)->setCurrentIndex(0);
        press(dialog, "cmdConnect");
        EXPECT_TRUE(users(dialog)->hasFocus());
        expectTheGateClosed();
    });
    expectTheGateClosed();
}

TEST_F(LoginWindow, EnterMovesOnFromTheNameAndConnectsFromThePassword)
{
    startAndPlay([](QDialog& dialog) {
        users(dialog)->setCurrentText("GUEST");
        QTest::keyClick(users(dialog), Qt::Key_Return);
        EXPECT_TRUE(password(dialog)->hasFocus());
        type(password(dialog), "Wrong");
        QTest::keyClick(password(dialog), Qt::Key_Escape);
        EXPECT_EQ(password(dialog)->text(), "");
        EXPECT_TRUE(dialog.isVisible());
        type(password(dialog), "Secret");
        QTest::keyClick(password(dialog), Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(session.CurrentUser.Name, "GUEST");
}

TEST_F(LoginWindow, DisconnectClosesTheCompany)
{
    startAndPlay([](QDialog& dialog) { press(dialog, "cmdDisconnect"); });
    EXPECT_TRUE(goesOn);
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(window()->windowTitle(), "Calidora");
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());
    EXPECT_FALSE(button("Enter")->isEnabled());
    EXPECT_EQ(operatorShown(), "");
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(LoginWindow, ExitEndsTheStartWithoutAQuestionAndTheConfigurationStays)
{
    startAndPlay([this](QDialog& dialog) {
        session.ToolbarSet.View = 0;
        press(dialog, "cmdExit");
    });
    EXPECT_FALSE(goesOn);
    EXPECT_FALSE(window()->isVisible());
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(session.DbName, "Plant.mdb");
    session::Session stored;
    stored.AppPath = session.AppPath;
    ASSERT_TRUE(session::Read_Configuration(stored));
    EXPECT_EQ(stored.ToolbarSet.View, -1);
}

TEST_F(LoginWindow, ExitLaterEndsTheProgramToo)
{
    startAndPlay([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    QSignalSpy left(&program, &program::Program::left);
    logInAgain([](QDialog& dialog) { press(dialog, "cmdExit"); });
    EXPECT_EQ(left.count(), 1);
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(LoginWindow, AnotherLoginClosesTheWindowsBeside)
{
    startAndPlay([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    desktop.script.expect(texts(513) + "\r\n" + texts(514), kNo);
    button("Enter")->trigger();
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN");

    clickNode("1_1");
    entry("frmListBus", "mnuFind")->trigger();
    ASSERT_TRUE(desktop.form("frmFind"));
    logInAgain([this](QDialog& dialog) {
        EXPECT_FALSE(desktop.form("frmFind"));
        expectTheGateClosed();
        logIn(dialog, "ADMINISTRATOR");
    });
    EXPECT_TRUE(session.CurrentUser.isAdministrator());
    EXPECT_FALSE(entry("frmTreeBus", "mnuNew")->isEnabled());
    EXPECT_EQ(program.structure().selectedNode(), "");
    EXPECT_EQ(listKeys(), QStringList{"Root"});
}

TEST_F(LoginWindow, ACompanyOpenedOrMadeAsksToo)
{
    session.COMPort = {};
    session.DbName.clear();
    ASSERT_TRUE(session::Write_Configuration(session));
    ASSERT_TRUE(program.run());
    desktop.script.chooseFile(plantFile());
    atTheLogin([](QDialog& dialog) { logIn(dialog, "GUEST", "Secret"); });
    button("OpenDb")->trigger();
    EXPECT_EQ(session.CurrentUser.Name, "GUEST");
    desktop.script.expect(texts(503), kYes);
    button("CloseDb")->trigger();
    EXPECT_EQ(session.CurrentUser.Name, "");

    desktop.script.chooseFile(file("Data/New.mdb"));
    atTheLogin([](QDialog& dialog) {
        EXPECT_EQ(users(dialog)->count(), 2);
        logIn(dialog, "ADMINISTRATOR");
    });
    button("NewDb")->trigger();
    EXPECT_TRUE(session.CurrentUser.isAdministrator());
}

TEST_F(LoginWindow, ACompanyWithoutOperatorsGetsItsAdministrator)
{
    runOnPlant("DELETE FROM tbUsers");
    startAndPlay([](QDialog& dialog) { logIn(dialog, "ADMINISTRATOR"); });
    EXPECT_TRUE(session.CurrentUser.isAdministrator());
}

// Far too much, and what is no letter at all, is a wrong password like any other.
TEST_F(LoginWindow, ThePasswordTakesNoMoreThanItHolds)
{
    startAndPlay([this](QDialog& dialog) {
        users(dialog)->setCurrentText("GUEST");
        for (const QString& pasted :
             {QString(10000, 'x'), QString("' OR '1'='1"), QString::fromUtf8("Ёлка"),
              QString::fromUtf8("x") + QString::fromUtf8("\xF0\x9F\x94\xA7").repeated(5)}) {
            QApplication::clipboard()->setText(pasted);
            password(dialog)->selectAll();
            password(dialog)->paste();
            EXPECT_LE(password(dialog)->text().size(), 8);
            EXPECT_FALSE(password(dialog)->text().back().isHighSurrogate());
            desktop.script.expect(texts(523));
            press(dialog, "cmdConnect");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(session.CurrentUser.IDUser, "");
        }
    });
}

// He works on with what he had; the next login doesn't know him any more.
TEST_F(LoginWindow, WhomAnotherProgramRemovesOrDisablesIsNotOfferedAgain)
{
    const char* const changes[] = {"UPDATE tbUsers SET State = 1 WHERE IDUser = '1'",
                                   "DELETE FROM tbUsers WHERE IDUser = '1'"};
    startAndPlay([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    for (const char* change : changes) {
        runOnPlant(change);
        clickNode("1_1");
        EXPECT_TRUE(entry("frmTreeBus", "mnuNew")->isEnabled() || session.CurrentUser.Name == "GUEST");
        logInAgain([](QDialog& dialog) {
            EXPECT_EQ(users(dialog)->findText("TECHNICIAN"), -1);
            logIn(dialog, "GUEST", "Secret");
        });
        EXPECT_EQ(session.CurrentUser.Name, "GUEST");
    }
}

TEST_F(LoginWindow, ACompanyInUseIsToldAndTheWindowStays)
{
    startAndPlay([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    SQLite::Database other(plantFile().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE;");
    logInAgain([&](QDialog& dialog) {
        failures.expectUnder("frmLogInOut.Load");
        EXPECT_EQ(users(dialog)->count(), 1) << "nobody can be chosen";
        desktop.script.expect(texts(523));
        press(dialog, "cmdConnect");
        EXPECT_TRUE(dialog.isVisible());
        other.exec("ROLLBACK;");
    });
    expectTheGateClosed();
    logInAgain([](QDialog& dialog) { logIn(dialog, "TECHNICIAN"); });
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN");
}

TEST_F(LoginWindow, SpeaksEveryLanguageAndClipsNothing)
{
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        setLanguage(language);
        atTheLogin([this](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\" + texts(33));
            EXPECT_EQ(dialog.findChild<QLabel*>("lblCapsLock")->text(), texts.own("login.capslock"));
            dialog.findChild<QWidget*>("capsLock")->show();
            QApplication::processEvents();
            nothingIsClipped(dialog);
            picture(dialog, "login");
        });
        if (!desktop.form("frmMain")) {
            session.DbName = "Plant.mdb";
            ASSERT_TRUE(session::Write_Configuration(session));
            program.run();
        } else {
            desktop.showFormModal("frmLogInOut");
        }
        EXPECT_EQ(played, 1);
    }
}

} // namespace
