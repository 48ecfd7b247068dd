#include "platform/widgets/DesktopOperator.h"

#include "gui/GuiFixture.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

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
    {
        const BusyPointer busy(op);
        inModal([](QWidget* box) {
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            box->close();
        });
        op.messageBox("!", Buttons::Ok, Icon::Exclamation, "Calidora");
        ASSERT_TRUE(QApplication::overrideCursor());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Desktop, TheBusyLinesPointerStandsBetweenTheJobs)
{
    op.setPointer(Pointer::ArrowHourglass);
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
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
    EXPECT_THROW(op.showFormModal("frmNowhere"), RuntimeError);
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

// Two kinds of file: what is chosen in the list of kinds goes with the name.
class SaveDialog : public Desktop
{
protected:
    ChosenFile save(
        int filterIndex, const QString& typed, std::function<void(QWidget*)> play = [](QWidget*) {})
    {
        inModal([&](QWidget* dialog) {
            play(dialog);
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            name->setText(typed);
            QTest::keyClick(name, Qt::Key_Return);
        });
        return op.saveFile({"Save as", "Text (Tab) (*.txt)|*.txt|Text (Comma) (*.csv)|*.csv|All|*.*", "",
                            folder.path(), filterIndex});
    }
    static void chooseKind(QWidget* dialog, Qt::Key key)
    {
        QTest::keyClick(dialog->findChild<QComboBox*>("fileTypeCombo"), key);
    }

    QTemporaryDir folder;
};

TEST_F(SaveDialog, TellsTheChosenFilterAndItsEnding)
{
    const ChosenFile first = save(1, "plant");
    EXPECT_EQ(first.name, folder.filePath("plant.txt"));
    EXPECT_EQ(first.filterIndex, 1);
    const ChosenFile second = save(2, "plant");
    EXPECT_EQ(second.name, folder.filePath("plant.csv"));
    EXPECT_EQ(second.filterIndex, 2);
    const ChosenFile third = save(3, "plant");
    EXPECT_EQ(third.name, folder.filePath("plant"));
    EXPECT_EQ(third.filterIndex, 3);
}

TEST_F(SaveDialog, TheEndingFollowsTheFilter)
{
    const ChosenFile down = save(1, "plant", [](QWidget* dialog) { chooseKind(dialog, Qt::Key_Down); });
    EXPECT_EQ(down.name, folder.filePath("plant.csv"));
    EXPECT_EQ(down.filterIndex, 2);
    EXPECT_EQ(save(2, "plant", [](QWidget* dialog) { chooseKind(dialog, Qt::Key_Up); }).filterIndex, 1);
    EXPECT_EQ(save(1, "plant.dat").name, folder.filePath("plant.dat")) << "a typed ending stays";
}

// The desktop's own way of opening an address, caught before it leaves the program.
class AddressTaker : public QObject
{
    Q_OBJECT

public:
    AddressTaker() { QDesktopServices::setUrlHandler("mailto", this, "take"); }
    ~AddressTaker() override { QDesktopServices::unsetUrlHandler("mailto"); }
    QStringList taken;

public slots:
    void take(const QUrl& url) { taken << url.toString(); }
};

TEST_F(Desktop, AnAddressIsOpenedByTheDesktopOrFails)
{
    AddressTaker desktop;
    op.openAddress("mailto:help@example.org");
    EXPECT_EQ(desktop.taken, QStringList{"mailto:help@example.org"});
    try {
        op.openAddress("nobody-takes-this:x");
        FAIL() << "no program takes it";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, errors::kFileNotFound);
        EXPECT_EQ(error.description, "<address.noprogram>");
    }
}

TEST(NameFilters, AreWrittenAsQtWantsThem)
{
    EXPECT_EQ(nameFilters("Access (*.mdb)|*.mdb"), QStringList{"Access (*.mdb)"});
    EXPECT_EQ(nameFilters("Text (Tab delimited) (*.txt)|*.txt|Text (Comma delimited) (*.csv)|*.csv"),
              (QStringList{"Text (Tab delimited) (*.txt)", "Text (Comma delimited) (*.csv)"}));
}

} // namespace

#include "DesktopOperatorTest.moc"
