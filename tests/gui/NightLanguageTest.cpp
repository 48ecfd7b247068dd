// Another language while something else goes on, and the words of the keys and of the toolkit's own windows.
#include "gui/ConsoleFixture.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QRegularExpression>
#include <QToolButton>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

class NightLanguage : public gui::ConsoleFixture
{
protected:
    void choose(const char* language)
    {
        entry("frmTreeBus", qPrintable(QStringLiteral("mnuLanguage") + language))->trigger();
        settle();
    }
    bool isMarked(const char* language) const
    {
        return entry("frmTreeBus", qPrintable(QStringLiteral("mnuLanguage") + language))->isChecked();
    }
    QStringList logFiles() const { return QDir(file("Log")).entryList({"*.log"}, QDir::Files); }
    void ringAndTalk()
    {
        arrives("RING");
        clock.run(3000);
        arrives("CONNECT");
        arrives("<NORTH><UNIT 2><High temperature>");
    }
};

TEST_F(NightLanguage, OverAConnectionItIsAskedForAndCutsTheLine)
{
    start();
    open("1_1", [&] { connectByCable(); });
    const qsizetype logs = logFiles().size();
    desktop.script.expect(texts.own("exit.connected"), kNo);
    choose("IT");
    EXPECT_EQ(session.Language.Code, "EN");
    EXPECT_TRUE(isMarked("EN"));
    EXPECT_FALSE(isMarked("IT"));
    EXPECT_EQ(session.COMPort.Status, session::kConnected) << "nothing has happened";
    EXPECT_EQ(desktop.script.questions.back().more, texts.own("language.cuts"));

    desktop.script.expect(texts.own("exit.connected"), kYes);
    choose("IT");
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_TRUE(isMarked("IT"));
    EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
    EXPECT_EQ(panel("Plant"), "");
    EXPECT_EQ(logFiles().size(), logs + 1) << "what the connection brought is kept";
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN");
    // The line can be used again at once.
    open("1_1", [&] {
        EXPECT_TRUE(activity().startsWith("Non connesso")) << qPrintable(activity());
        connectByCable();
        hangUp();
    });
}

// The alarms that a call has brought so far are not lost with it.
TEST_F(NightLanguage, WhileACallComesInItIsAskedForAndKeepsWhatCame)
{
    start();
    ringAndTalk();
    ASSERT_EQ(session.COMPort.Status, session::kBusy);
    desktop.script.expect(texts.own("exit.connected"), kNo);
    choose("RU");
    EXPECT_EQ(session.Language.Code, "EN");
    desktop.script.expect(texts.own("exit.connected"), kYes);
    choose("RU");
    EXPECT_EQ(session.Language.Code, "RU");
    EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
    QByteArray logged;
    for (const QString& name : logFiles()) {
        QFile log(file("Log/") + name);
        ASSERT_TRUE(log.open(QIODevice::ReadOnly));
        logged += log.readAll();
    }
    EXPECT_TRUE(logged.contains("High temperature")) << logged.constData();
    clock.run(120000);
    EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
}

TEST_F(NightLanguage, TheQuestionMayOutliveTheCallThatItIsAbout)
{
    start();
    ringAndTalk();
    desktop.script.expect(texts.own("exit.connected"), kYes);
    desktop.whileABoxStands = [&] {
        clock.run(5000);
        arrives("<NORTH><End of call>");
        clock.run(5000);
        settle();
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle) << "the call is over";
    };
    choose("IT");
    desktop.whileABoxStands = {};
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kAlarm) << "its alarms still call";
    EXPECT_EQ(panel("Info"), texts(582));
}

TEST_F(NightLanguage, TheQuestionMayOutliveTheConnection)
{
    start();
    open("1_1", [&] { connectByCable(); });
    desktop.script.expect(texts.own("exit.connected"), kYes);
    desktop.whileABoxStands = [&] {
        port.vanish();
        clock.settle();
        failures.take();
        EXPECT_EQ(session.COMPort.Status, session::kPortClosed);
    };
    choose("IT");
    desktop.whileABoxStands = {};
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_EQ(session.COMPort.Status, session::kPortClosed) << "a port that went isn't called idle";
    EXPECT_FALSE(plant().tree().indexOf("1_1").data().toString().isEmpty());
}

TEST_F(NightLanguage, TheSameLanguageOnceMoreChangesNothing)
{
    start();
    open("1_1", [&] { connectByCable(); });
    choose("EN");
    EXPECT_EQ(session.COMPort.Status, session::kConnected) << "nobody asked to cut it";
    EXPECT_TRUE(isMarked("EN"));
    EXPECT_TRUE(desktop.script.questions.empty());
}

// What stays open beside the main window speaks the new language, and what a dialog holds up can't change it.
TEST_F(NightLanguage, WindowsBesideTheMainOneFollow)
{
    start();
    program.handlers().run("Manual");
    program.handlers().run("LineTrace");
    choose("RU");
    EXPECT_EQ(desktop.form("frmManual")->windowTitle(), "Calidora\\" + texts.own("manual.title"));
    EXPECT_EQ(desktop.form("frmTrace")->windowTitle(), "Calidora\\" + texts.own("trace.title"));
    inside("frmReadWrite", [&](QDialog& console) {
        EXPECT_EQ(QApplication::activeModalWidget(), &console);
        EXPECT_TRUE(
            console.findChild<QLabel*>("lblActivity")->text().startsWith(QStringLiteral("Нет связи")));
    });
    clickNode("1_1");
    program.handlers().run("ReadWriteNode");
    EXPECT_EQ(played, 1);
}

// Keys are called what the toolkit calls them in that language, everywhere.
TEST_F(NightLanguage, ToolTipsNameTheirKeysInEveryLanguage)
{
    start();
    const auto named = [](const QKeySequence& keys) {
        return " (" + keys.toString(QKeySequence::NativeText) + ')';
    };
    for (const char* language : {"IT", "RU", "EN"}) {
        choose(language);
        clickNode("Root");
        const std::pair<const char*, const char*> rows[] = {{"New", "Ins"},
                                                            {"Delete", "Del"},
                                                            {"Cut", "Ctrl+X"},
                                                            {"Copy", "Ctrl+C"},
                                                            {"Paste", "Ctrl+V"},
                                                            {"Find", "Ctrl+Shift+F"},
                                                            {"Pending", "Ctrl+Shift+P"},
                                                            {"ReadWrite", "Ctrl+R"}};
        for (const auto& [key, keys] : rows)
            EXPECT_TRUE(button(key)->toolTip().endsWith(named(QKeySequence(keys))))
                << language << ": " << qPrintable(button(key)->toolTip());
        EXPECT_TRUE(
            control<QWidget>("Waiting")->toolTip().contains(named(QKeySequence("Ctrl+Shift+P")).trimmed()))
            << language << ": " << qPrintable(control<QWidget>("Waiting")->toolTip());
        const QString insert = QKeySequence("Ins").toString(QKeySequence::NativeText);
        for (const char* name : {"list.empty.root", "list.empty.group"})
            EXPECT_TRUE(texts.own(name).contains('(' + insert + ')')) << language << ": " << name;
        clickNode("1_1");
        open("1_1", [&] {
            const std::pair<const char*, const char*> tools[] = {
                {"Connect", "F6"}, {"Disconnect", "Shift+F6"}, {"Read", "F7"}, {"Write", "F8"}};
            for (const auto& [key, keys] : tools)
                EXPECT_TRUE(toolButton(key)->toolTip().endsWith(named(QKeySequence(keys))))
                    << language << ": " << qPrintable(toolButton(key)->toolTip());
        });
    }
    EXPECT_EQ(QKeySequence("Del").toString(QKeySequence::NativeText), "Del");
}

// The toolkit's own window for files: headings, kinds, buttons, tips, the menu of its list.
class NightFiles : public NightLanguage
{
protected:
    // Everything that the window says, but the names of files and folders.
    static QStringList wordsOf(QFileDialog& dialog)
    {
        QStringList words;
        for (auto* label : dialog.findChildren<QLabel*>())
            words << label->text();
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            words << button->text() << button->toolTip() << button->accessibleName();
        for (auto* action : dialog.findChildren<QAction*>())
            words << action->text();
        for (auto* view : dialog.findChildren<QTreeView*>()) {
            const QAbstractItemModel& model = *view->model();
            for (int column = 0; column < model.columnCount(); ++column)
                words << model.headerData(column, Qt::Horizontal).toString();
            for (int row = 0; row < model.rowCount(view->rootIndex()); ++row)
                for (int column = 1; column < 4; ++column)
                    words << model.index(row, column, view->rootIndex()).data().toString();
        }
        for (QString& word : words)
            word.remove('&');
        words.removeAll(QString());
        words.removeDuplicates();
        return words;
    }
    QStringList shown()
    {
        QStringList words;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            auto* list = dialog->findChild<QTreeView*>("treeView");
            EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 3; }));
            dialog->findChild<QToolButton*>("detailModeButton")->click();
            words = wordsOf(*dialog);
            const auto cell = [&](int row, int column) {
                return list->model()->index(row, column, list->rootIndex()).data().toString();
            };
            EXPECT_EQ(cell(0, 0) + cell(0, 1), "below") << "a folder has no size";
            EXPECT_EQ(cell(1, 3), QLocale().toString(QFileInfo(file("files/a.dat")).lastModified(),
                                                     QLocale::ShortFormat));
            for (int column = 1; column < 4; ++column)
                EXPECT_GT(list->columnWidth(column), list->fontMetrics().horizontalAdvance(cell(1, column)))
                    << column;
            picture(*dialog, "files");
            dialog->reject();
        });
        EXPECT_THROW(
            desktop.DesktopOperator::openFile(
                {.title = session.AppTitle, .filter = texts(286), .fileName = {}, .folder = file("files")}),
            platform::RuntimeError);
        return words;
    }
};

TEST_F(NightFiles, EverythingInTheFileDialogIsInTheLanguageOfTheProgram)
{
    start();
    QDir().mkpath(file("files/below"));
    for (const char* name : {"files/a.dat", "files/b.dat"}) {
        QFile made(file(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write("\1\2\3");
    }
    choose("EN");
    const QStringList english = shown();
    EXPECT_TRUE(english.contains("Date Modified")) << qPrintable(english.join('|'));
    EXPECT_TRUE(english.contains("Folder")) << qPrintable(english.join('|'));
    choose("RU");
    for (const QString& word : shown()) {
        static const QRegularExpression kLatin("[A-Za-z]{2,}");
        const QString told = QString(word).remove("dat");
        EXPECT_FALSE(told.contains(kLatin)) << word.toStdString();
    }
    choose("IT");
    const QStringList italian = shown();
    EXPECT_TRUE(italian.contains("Cartella")) << qPrintable(italian.join('|'));
    EXPECT_TRUE(italian.contains("Data di modifica")) << qPrintable(italian.join('|'));
    for (const QString& word : italian) {
        // "File" is the same word.
        EXPECT_TRUE(!english.contains(word) || word == "File" || word == "Computer" || word.size() < 2)
            << word.toStdString();
    }
}

} // namespace
