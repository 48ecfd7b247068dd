// Questions that destroy something: what they tell, and what Enter means.
#include "gui/GuiFixture.h"

#include <QMessageBox>
#include <QPushButton>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

class Questions : public gui::GuiFixture
{
protected:
    const platform::Question& last() const { return desktop.script.questions.back(); }
    // A question as the desktop itself shows it, answered by `key`.
    int onTheDesktop(const platform::Question& question, int key)
    {
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            waiting.stop();
            shown_ = box->informativeText();
            format_ = box->findChild<QLabel*>("qt_msgbox_informativelabel")->textFormat();
            picture(*box, "question");
            QTest::keyClick(box, Qt::Key(key));
        });
        waiting.start(0);
        return desktop.platform::DesktopOperator::ask(question);
    }
    QString shown_;
    Qt::TextFormat format_ = Qt::AutoText;
};

TEST_F(Questions, ADeletionTellsWhatGoes)
{
    start();
    clickNode("1_1");
    clickItem("2_1_2");
    desktop.script.expect(texts(506), kNo);
    QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_TRUE(last().more.startsWith("ALPHA, ")) << qPrintable(last().more);
    EXPECT_TRUE(last().more.contains(
        support::column(plantFile(), "SELECT Count(*) FROM tbParametersUser WHERE IDGrp = 1 AND IDInst = 2")
            .first() +
        " parameters"))
        << qPrintable(last().more);
    EXPECT_TRUE(last().more.contains("Changed here and not yet written: ")) << qPrintable(last().more);
    EXPECT_TRUE(last().destroys);
    EXPECT_EQ(last().icon, platform::Icon::Exclamation);
    EXPECT_TRUE(plant().tree().contains("2_1_2"));

    desktop.script.expect(texts(506), kNo);
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_TRUE(last().more.startsWith("GRP1, instruments: 2, parameters: ")) << qPrintable(last().more);
}

TEST_F(Questions, AResetTellsHowManyMarksGo)
{
    start();
    clickNode("3_1_1_G02");
    desktop.script.expect(texts(512), kNo);
    button("Reset")->trigger();
    EXPECT_TRUE(last().destroys);
    EXPECT_TRUE(last().more.contains("not yet written: 1")) << qPrintable(last().more);
    desktop.script.expect(texts(511), kNo);
    clickNode("1_1");
    button("Resync")->trigger();
    EXPECT_FALSE(last().destroys) << "a synchronisation loses nothing";
}

TEST_F(Questions, TheExitTellsWhatWaits)
{
    start();
    desktop.script.expect(texts(524), kNo);
    window()->close();
    EXPECT_EQ(last().more, "Values changed and not yet written to the instruments: 3");
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    desktop.script.expect(texts(524), kNo);
    window()->close();
    EXPECT_EQ(last().more, "");
}

TEST_F(Questions, EnterMeansNoWhereSomethingIsLost)
{
    start();
    EXPECT_EQ(onTheDesktop(
                  {.text = texts(506), .more = "<B>NORTH</B>, 66 parameters", .title = "T", .destroys = true},
                  Qt::Key_Return),
              kNo);
    EXPECT_EQ(shown_, "<B>NORTH</B>, 66 parameters");
    EXPECT_EQ(format_, Qt::PlainText) << "a name is no markup";
    EXPECT_EQ(onTheDesktop({.text = texts(511), .more = "x", .title = "T"}, Qt::Key_Return), kYes);
    EXPECT_EQ(onTheDesktop({.text = texts(511), .more = "x", .title = "T"}, Qt::Key_Escape), kNo);
}

} // namespace
