// The start as the operator sees it: window by window, with the hourglass, on what the last run remembered.
#include "gui/GuiFixture.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QToolBar>
#include <optional>

namespace {

// Notes what appears on the screen while it lives.
class Watcher : public QObject
{
public:
    struct Progress
    {
        QString window;
        int value;
        QString file; // of the purge
        std::optional<Qt::CursorShape> pointer;
    };

    Watcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget && widget->isWindow() && widget->objectName().startsWith("frm")) {
            if (event->type() == QEvent::Show)
                windows << "+" + widget->objectName();
            if (event->type() == QEvent::Hide)
                windows << "-" + widget->objectName();
        }
        if (auto* bar = qobject_cast<QProgressBar*>(watched); bar && event->type() == QEvent::Paint)
            note(*bar);
        return false;
    }

    std::vector<Progress> of(const QString& window) const
    {
        std::vector<Progress> noted;
        for (const Progress& step : steps)
            if (step.window == window)
                noted.push_back(step);
        return noted;
    }

    QStringList windows;
    std::vector<Progress> steps;

private:
    void note(const QProgressBar& bar)
    {
        const QWidget* window = bar.window();
        const auto* file = window->findChild<QLineEdit*>("txtFileName");
        const Progress step{window->objectName(), bar.value(), file ? file->text() : QString(),
                            QApplication::overrideCursor()
                                ? std::optional(QApplication::overrideCursor()->shape())
                                : std::nullopt};
        const bool again = !steps.empty() && steps.back().window == step.window &&
                           steps.back().value == step.value && steps.back().file == step.file;
        if (!again)
            steps.push_back(step);
    }
};

class Start : public gui::GuiFixture
{
protected:
    void writeLog(const QString& name)
    {
        QFile log(file("Log/" + name));
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    }

    Watcher watcher;
};

TEST_F(Start, TheWindowsComeAndGoInTheirOrder)
{
    writeLog("Calidora_20200101120000.log");
    start();
    EXPECT_EQ(watcher.windows,
              (QStringList{"+frmPresentation", "-frmPresentation", "+frmMain", "+frmConnection",
                           "-frmConnection", "+frmReadLogFiles", "-frmReadLogFiles"}));
}

TEST_F(Start, TheConnectionShowsEachStepUnderAnHourglassThatStays)
{
    start();
    const auto steps = watcher.of("frmConnection");
    std::vector<int> values;
    for (const Watcher::Progress& step : steps) {
        values.push_back(step.value);
        EXPECT_EQ(step.pointer, Qt::WaitCursor) << step.value;
    }
    if (!values.empty() && values.front() == 0)
        values.erase(values.begin());
    EXPECT_EQ(values, (std::vector<int>{11, 22, 33, 44, 55, 66, 77, 88, 100}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(desktop.form("frmConnection"));
}

TEST_F(Start, ThePurgeShowsEachFileUnderAnHourglassThatStays)
{
    for (const char* name : {"Calidora_20200101120000.log", "Calidora_Error_20200101120000.log", "other.log"})
        writeLog(name);
    start();
    std::vector<std::pair<int, QString>> shown;
    for (const Watcher::Progress& step : watcher.of("frmReadLogFiles")) {
        EXPECT_EQ(step.pointer, Qt::WaitCursor) << step.value;
        if (!step.file.isEmpty())
            shown.emplace_back(step.value, step.file);
    }
    EXPECT_EQ(shown, (std::vector<std::pair<int, QString>>{{33, "(1/3) Calidora_20200101120000.log"},
                                                           {66, "(2/3) Calidora_Error_20200101120000.log"},
                                                           {100, "(3/3) other.log"}}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QDir(file("Log")).entryList(QDir::Files), QStringList{"other.log"});
}

TEST_F(Start, TheProgressWindowsSayWhatTheyDo)
{
    start();
    const std::pair<const char*, int> rows[] = {{"frmConnection", 143}, {"frmReadLogFiles", 144}};
    for (const auto& [name, text] : rows) {
        desktop.showForm(name);
        QWidget* form = desktop.form(name);
        EXPECT_EQ(form->windowTitle(), "Calidora") << name;
        QStringList labels;
        for (const QLabel* label : form->findChildren<QLabel*>())
            labels << label->text();
        EXPECT_EQ(labels, QStringList{texts(text)}) << name;
        auto* bar = form->findChild<QProgressBar*>("prgLoad");
        EXPECT_EQ(bar->minimum(), 0);
        EXPECT_EQ(bar->maximum(), 100);
        EXPECT_EQ(form->windowFlags() & Qt::WindowCloseButtonHint, 0) << "nobody closes it but its job";
        desktop.unloadForm(name);
    }
}

TEST_F(Start, TheSplashStandsInTheMiddleWithItsPicture)
{
    start();
    desktop.showForm("frmPresentation");
    QWidget* splash = desktop.form("frmPresentation");
    EXPECT_EQ(splash->size(), QSize(560, 320));
    EXPECT_EQ(splash->geometry().center(), splash->screen()->availableGeometry().center());
    EXPECT_TRUE(splash->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_EQ(splash->windowType(), Qt::SplashScreen);
    const QImage shown = splash->grab().toImage();
    EXPECT_NE(shown.pixelColor(shown.width() / 2, shown.height() / 2),
              shown.pixelColor(shown.width() / 4, shown.height() / 2));
    desktop.unloadForm("frmPresentation");
}

TEST_F(Start, TheProgressWindowsAreAsWideAsTheirWords)
{
    start();
    for (const auto& [name, width] : {std::pair("frmConnection", 340), std::pair("frmReadLogFiles", 420)}) {
        desktop.showForm(name);
        QWidget* form = desktop.form(name);
        EXPECT_EQ(form->width(), width) << name;
        EXPECT_EQ(form->layout()->contentsMargins(), QMargins(20, 16, 20, 20)) << name;
        EXPECT_EQ(form->layout()->spacing(), 8) << name;
        EXPECT_EQ(form->windowType(), Qt::Dialog) << name;
        EXPECT_TRUE(form->windowFlags() & Qt::WindowTitleHint) << name;
        desktop.unloadForm(name);
    }
    desktop.showForm("frmReadLogFiles");
    const auto* shown = desktop.form("frmReadLogFiles")->findChild<QLineEdit*>("txtFileName");
    EXPECT_TRUE(shown->isReadOnly());
    EXPECT_EQ(shown->focusPolicy(), Qt::NoFocus);
    desktop.unloadForm("frmReadLogFiles");
}

TEST_F(Start, TheMainWindowIsLaidOutForThePlant)
{
    start();
    const int room = window()->screen()->availableGeometry().width() - 4; // a frame's two sides
    EXPECT_EQ(window()->size(), QSize(std::min(1120, room), 720));
    EXPECT_EQ(window()->contextMenuPolicy(), Qt::NoContextMenu) << "the bars can't be switched off";
    auto* splitter = control<QSplitter>("splitter");
    EXPECT_EQ(splitter->handleWidth(), 5);
    EXPECT_FALSE(splitter->childrenCollapsible());
    EXPECT_EQ(desktop.form("frmTreeBus")->minimumWidth(), 120);
    EXPECT_EQ(desktop.form("frmListBus")->minimumWidth(), 240);
    EXPECT_EQ(splitter->widget(0), desktop.form("frmTreeBus")) << "the tree stands on the left";
    EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kRest);
    // A wider window is a wider list.
    const int tree = desktop.form("frmTreeBus")->width();
    const int list = desktop.form("frmListBus")->width();
    window()->resize(window()->width() + 200, window()->height());
    QApplication::processEvents();
    EXPECT_EQ(desktop.form("frmTreeBus")->width(), tree);
    EXPECT_EQ(desktop.form("frmListBus")->width(), list + 200);
}

TEST_F(Start, WithoutACompanyTheKeysGoToTheNextSteps)
{
    start("");
    EXPECT_TRUE(control<QWidget>("emptyState")->isAncestorOf(QApplication::focusWidget()));
}

// What the last run left
// ------------------------------------------------------------------------------------------------------------

TEST_F(Start, AHiddenTreeStaysHidden)
{
    session.TreeBusSet.Visible = 0;
    start();
    EXPECT_FALSE(tvwBus()->isVisible());
    EXPECT_FALSE(button("Tree")->isChecked());
    EXPECT_FALSE(button("Expand")->isEnabled());
    EXPECT_TRUE(desktop.form("frmListBus")->isAncestorOf(QApplication::focusWidget()));
    button("Tree")->trigger();
    EXPECT_TRUE(tvwBus()->isVisible());
    EXPECT_TRUE(button("Expand")->isEnabled());
}

TEST_F(Start, TheTreeTakesTheWidthItHad)
{
    session.TreeBusSet.Width = 240 * 15;
    start();
    EXPECT_EQ(desktop.form("frmTreeBus")->width(), 240);
    EXPECT_TRUE(button("Tree")->isChecked());
}

TEST_F(Start, ATreeWiderThanHalfTheWindowTakesHalf)
{
    session.TreeBusSet.Width = 32000;
    start();
    EXPECT_NEAR(desktop.form("frmTreeBus")->width(), window()->width() / 2, 6);
}

TEST_F(Start, TheListsColumnsTakeTheWidthsTheyHadAndKeepTheNewOnes)
{
    session.ListBusSet = {3, 150 * 15, 111 * 15, -1};
    start();
    clickNode("Root");
    EXPECT_EQ(lvwBus()->columnWidth(0), 150);
    EXPECT_EQ(lvwBus()->columnWidth(1), 111);
    lvwBus()->setColumnWidth(1, 90);
    desktop.script.expect(texts(524), platform::answers::kYes);
    window()->close();
    EXPECT_EQ(session.ListBusSet.Col1Width, 150 * 15);
    EXPECT_EQ(session.ListBusSet.Col2Width, 90 * 15);
    EXPECT_EQ(session.ListBusSet.View, 3);
}

TEST_F(Start, TheToolbarHasTheSizeAndTheButtonsItHad)
{
    start();
    auto* toolbar = control<QToolBar>("tlbMain");
    const auto shown = [&] {
        QStringList keys;
        for (const QAction* action : toolbar->actions())
            if (action->isVisible() && !action->isSeparator())
                keys << action->objectName();
        return keys;
    };
    const QStringList complete = shown();
    EXPECT_EQ(toolbar->iconSize(), QSize(32, 32));
    program.commands().Set_View_Toolbar(0);
    const QStringList reduced = shown();
    EXPECT_LT(reduced.size(), complete.size());
    for (const QString& key : reduced)
        EXPECT_TRUE(complete.contains(key));
}

TEST_F(Start, ASmallReducedToolbarComesBackSo)
{
    session.ToolbarSet = {0, 0};
    start();
    EXPECT_EQ(control<QToolBar>("tlbMain")->iconSize(), QSize(16, 16));
    const qsizetype reduced = control<QToolBar>("tlbMain")->actions().size();
    qsizetype visible = 0;
    for (const QAction* action : control<QToolBar>("tlbMain")->actions())
        visible += action->isVisible() ? 1 : 0;
    EXPECT_LT(visible, reduced);
    EXPECT_TRUE(program.commands().marked("mnuTlbReduced"));
    EXPECT_TRUE(program.commands().marked("mnuTlbSmallIcons"));
}

// The first run
// ------------------------------------------------------------------------------------------------------------

TEST_F(Start, TheFirstRunAsksForTheLanguageAndRemembersIt)
{
    for (const char* marker : {"Data/Readme_Data.txt", "Log/Readme_Log.txt"})
        ASSERT_TRUE(QFile(file(marker)).open(QIODevice::WriteOnly));
    inside("frmLanguage", [&](QDialog& dialog) {
        EXPECT_EQ(session.Language.Code, "IT");
        auto* list = dialog.findChild<QComboBox*>("imcLanguage");
        EXPECT_EQ(list->currentData(), "IT_Italiano_1000");
        EXPECT_EQ(list->iconSize(), QSize(24, 24));
        for (int row = 0; row < list->count(); ++row)
            EXPECT_FALSE(list->itemIcon(row).isNull()) << row;
        EXPECT_TRUE(dialog.findChild<QPushButton*>("cmdApply")->isDefault());
        EXPECT_FALSE(dialog.windowFlags() & Qt::WindowContextHelpButtonHint);
        EXPECT_EQ(dialog.layout()->sizeConstraint(), QLayout::SetFixedSize);
        list->setCurrentIndex(list->findData("RU_Russian_6000"));
        QTest::keyClick(dialog.findChild<QWidget*>("cmdApply"), Qt::Key_Space);
        EXPECT_FALSE(dialog.isVisible());
    });
    ASSERT_TRUE(program.run());
    failures.expectOne(platform::errors::kFileNotFound, "Module/Read_Configuration");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(watcher.windows.mid(0, 4),
              (QStringList{"+frmPresentation", "+frmLanguage", "-frmLanguage", "-frmPresentation"}));
    EXPECT_FALSE(QFile::exists(file("Data/Readme_Data.txt")));
    EXPECT_FALSE(QFile::exists(file("Log/Readme_Log.txt")));
    EXPECT_EQ(session.Language.ID, "RU_Russian_6000");
    EXPECT_EQ(button("OpenDb")->toolTip(), texts(165));
    EXPECT_EQ(window()->windowTitle(), "Calidora");
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());

    desktop.script.expect(texts(524), platform::answers::kYes);
    window()->close();
    QFile settings(file("Calidora.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    EXPECT_TRUE(settings.readAll().contains("ID=RU_Russian_6000"));
}

TEST_F(Start, TheFirstRunWithoutMarkersSpeaksItalianAndAsksNothing)
{
    ASSERT_TRUE(program.run());
    failures.expectOne(platform::errors::kFileNotFound, "Module/Read_Configuration");
    EXPECT_FALSE(watcher.windows.contains("+frmLanguage"));
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_EQ(button("OpenDb")->toolTip(), texts(165));
}

TEST_F(Start, AClosedLanguageWindowLeavesItalian)
{
    ASSERT_TRUE(QFile(file("Data/Readme_Data.txt")).open(QIODevice::WriteOnly));
    inside("frmLanguage", [&](QDialog& dialog) {
        dialog.findChild<QComboBox*>("imcLanguage")->setCurrentIndex(2);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ASSERT_TRUE(program.run());
    failures.expectOne(platform::errors::kFileNotFound, "Module/Read_Configuration");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(session.Language.ID, "IT_Italiano_1000");
}

} // namespace
