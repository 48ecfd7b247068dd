#include "platform/widgets/DesktopOperator.h"

#include "gui/GuiFixture.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

using namespace platform;

// Boxes as they stand on the screen, answered by the person in front of it.
class Desktop : public testing::Test
{
protected:
    // Waits for the modal window and plays the operator in it.
    void inModal(std::function<void(QWidget*)> play)
    {
        QTimer::singleShot(0, qApp, [play] {
            ASSERT_TRUE(QApplication::activeModalWidget());
            play(QApplication::activeModalWidget());
        });
    }

    DesktopOperator op{[](const QString& key) { return "<" + key + ">"; }};
};

TEST_F(Desktop, ABoxShowsItsWordsAndGivesTheAnswerPressed)
{
    struct Row
    {
        Buttons buttons;
        const char* button;
        int answer;
    };
    for (const Row& row :
         {Row{Buttons::Ok, "common.ok", answers::kOk}, Row{Buttons::YesNo, "common.yes", answers::kYes},
          Row{Buttons::YesNo, "common.no", answers::kNo},
          Row{Buttons::YesNoCancel, "common.cancel", answers::kCancel}}) {
        inModal([&](QWidget* shown) {
            auto* box = qobject_cast<QMessageBox*>(shown);
            EXPECT_EQ(box->text(), "first\nsecond");
            EXPECT_EQ(box->windowTitle(), "Calidora");
            EXPECT_FALSE(box->iconPixmap().isNull());
            auto* button = box->findChild<QPushButton*>(row.button);
            EXPECT_EQ(button->text(), QString("<%1>").arg(row.button));
            button->click();
        });
        EXPECT_EQ(op.messageBox("first\r\nsecond", row.buttons, Icon::Question, "Calidora"), row.answer);
    }
}

TEST_F(Desktop, EscapeIsTheSafestAnswer)
{
    const std::pair<Buttons, int> rows[] = {{Buttons::Ok, answers::kOk},
                                            {Buttons::YesNo, answers::kNo},
                                            {Buttons::YesNoCancel, answers::kCancel}};
    for (const auto& [buttons, answer] : rows) {
        inModal([](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
        EXPECT_EQ(op.messageBox("?", buttons, Icon::Question, "Calidora"), answer);
    }
}

TEST_F(Desktop, ABoxShowsThePlainPointerAndGivesTheHourglassBack)
{
    op.setPointer(Pointer::Hourglass);
    inModal([](QWidget* box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box->close();
    });
    op.messageBox("!", Buttons::Ok, Icon::Exclamation, "Calidora");
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    op.setPointer(Pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Desktop, AWindowExistsOnceFromFirstUseToItsUnload)
{
    int made = 0;
    op.registerForm("frmTool", [&] { return ++made, new QDialog; });
    EXPECT_FALSE(op.form("frmTool"));
    op.showForm("frmTool");
    op.showForm("frmTool");
    EXPECT_EQ(made, 1);
    EXPECT_TRUE(op.form("frmTool")->isVisible());
    op.unloadForm("frmTool");
    EXPECT_FALSE(op.form("frmTool"));
    op.showForm("frmTool");
    EXPECT_EQ(made, 2);
}

TEST_F(Desktop, AModalWindowIsGoneWhenItsCallReturns)
{
    op.registerForm("frmTool", [] { return new QDialog; });
    inModal([&](QWidget* window) {
        EXPECT_EQ(op.form("frmTool"), window);
        window->close();
    });
    op.showFormModal("frmTool");
    EXPECT_FALSE(op.form("frmTool"));
}

TEST_F(Desktop, AWindowCanTellTheProgramsCloseFromTheOperators)
{
    struct Window : QWidget
    {
        void closeEvent(QCloseEvent* event) override
        {
            event->setAccepted(property(kClosedByProgram).toBool());
        }
    };
    op.registerForm("frmTool", [] { return new Window; });
    op.showForm("frmTool");
    EXPECT_FALSE(op.form("frmTool")->close());
    op.unloadForm("frmTool");
    EXPECT_FALSE(op.form("frmTool"));
}

TEST_F(Desktop, UnloadingAllLeavesTheMainWindowAndItsChildren)
{
    QWidget tree;
    op.adoptForm("frmTreeBus", &tree);
    for (const char* name : {"frmMain", "frmTool", "frmOther"}) {
        op.registerForm(name, [] { return new QWidget; });
        op.showForm(name);
    }
    op.unloadAllForms();
    EXPECT_TRUE(op.form("frmMain"));
    EXPECT_TRUE(op.form("frmTreeBus"));
    EXPECT_FALSE(op.form("frmTool"));
    EXPECT_FALSE(op.form("frmOther"));
    op.enableForm("frmTreeBus", false);
    EXPECT_FALSE(tree.isEnabled());
}

TEST_F(Desktop, AnUnknownWindowFails)
{
    EXPECT_THROW(op.showForm("frmNowhere"), RuntimeError);
}

TEST_F(Desktop, AModalWindowThatTheProgramLacksIsNotShown)
{
    op.showFormModal("frmNowhere");
    EXPECT_FALSE(op.form("frmNowhere"));
}

TEST_F(Desktop, AnInputBoxGivesTheTypedLineOrNothing)
{
    inModal([](QWidget* box) {
        EXPECT_EQ(box->objectName(), "inputBox");
        EXPECT_EQ(box->windowTitle(), "Calidora Find");
        QTest::keyClicks(box->findChild<QLineEdit*>(), "pump");
        QTest::keyClick(box, Qt::Key_Return);
    });
    EXPECT_EQ(op.inputBox("Input the string to search", "Calidora Find"), "pump");
    inModal([](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
    EXPECT_EQ(op.inputBox("Input the string to search", "Calidora Find"), std::nullopt);
}

TEST_F(Desktop, ACancelledFileDialogIsItsOwnError)
{
    inModal([](QWidget* dialog) { dialog->close(); });
    try {
        op.openFile({"Open Database", "Access (*.mdb)|*.mdb", "", "/"});
        FAIL() << "a cancel fails";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, errors::kCancelled);
        EXPECT_EQ(error.description, "<file.cancelled>");
    }
}

TEST(NameFilters, AreWrittenAsQtWantsThem)
{
    EXPECT_EQ(nameFilters("Access (*.mdb)|*.mdb"), QStringList{"Access (*.mdb)"});
    EXPECT_EQ(nameFilters("Text (Tab delimited) (*.txt)|*.txt|Text (Comma delimited) (*.csv)|*.csv"),
              (QStringList{"Text (Tab delimited) (*.txt)", "Text (Comma delimited) (*.csv)"}));
}

} // namespace
