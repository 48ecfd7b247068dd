// Groups and instruments drawn by the mouse over the tree.
#include "gui/GuiFixture.h"
#include "session/Session.h"
#include "structure/frmListBus.h"

#include <QFrame>
#include <QPainter>

using platform::answers::kNo;
using platform::answers::kOk;
using platform::answers::kYes;

namespace {

class DragTest : public gui::GuiFixture
{
protected:
    QString words() const
    {
        for (const QLabel* label : hint()->findChildren<QLabel*>()) {
            if (!label->text().isEmpty())
                return label->text();
        }
        return {};
    }
    int groups() { return support::column(plantFile(), "SELECT Count(*) FROM tbGroupsUser")[0].toInt(); }
    void startOnPlant()
    {
        start();
        tvwBus()->expandAll();
    }
};

TEST_F(DragTest, AnInstrumentIsMovedFromGroupToGroup)
{
    startOnPlant();
    draw(tree(), atNode("2_1_1"), atNode("1_3"));
    ASSERT_TRUE(hint());
    EXPECT_TRUE(hint()->isVisible());
    EXPECT_EQ(words(), "Move to \"O'Hara\"");
    EXPECT_EQ(plant().selectedNode(), "2_1_1") << "the selection stays while the button is held";
    picture(*window(), "drag");
    desktop.script.expect(texts(507), kYes);
    desktop.script.expect(texts(509), kOk);
    drop(tree(), atNode("1_3"));
    EXPECT_FALSE(hint());
    EXPECT_TRUE(plant().tree().contains("2_3_1"));
    EXPECT_FALSE(plant().tree().contains("2_1_1"));
    EXPECT_EQ(plant().selectedNode(), "1_3");
}

TEST_F(DragTest, WithControlAGroupOfTheListIsCopied)
{
    startOnPlant();
    for (int view : {3, 0}) {
        const int before = groups();
        plant().Set_View_ListBus(view);
        clickNode("Root");
        QWidget* list = shownList()->viewport();
        draw(list, list->mapToGlobal(placeOf("1_2")), atNode("Root"), Qt::ControlModifier);
        EXPECT_EQ(words(), "Copy to \"ZEL Bus\"");
        desktop.script.expect(texts(508), kYes);
        desktop.script.expect(texts(509), kOk);
        drop(list, atNode("Root"));
        EXPECT_EQ(groups(), before + 1);
    }
}

TEST_F(DragTest, EscapeGivesItUpAndTheReleaseDoesNothing)
{
    startOnPlant();
    draw(tree(), atNode("2_1_1"), atNode("1_3"));
    ASSERT_TRUE(hint());
    QTest::keyClick(tvwBus(), Qt::Key_Escape);
    EXPECT_FALSE(hint());
    drop(tree(), atNode("1_3"));
    EXPECT_TRUE(plant().tree().contains("2_1_1"));
}

TEST_F(DragTest, ADropInTheListOutsideOrOnItselfDoesNothing)
{
    startOnPlant();
    QWidget* list = shownList()->viewport();
    const QPoint places[] = {list->mapToGlobal(list->rect().center()),
                             window()->mapToGlobal(QPoint(-200, -200)), atNode("2_1_1")};
    for (const QPoint& place : places) {
        draw(tree(), atNode("2_1_1"), place);
        ASSERT_TRUE(hint());
        EXPECT_EQ(words(), "Not here");
        drop(tree(), place);
        EXPECT_FALSE(hint());
        EXPECT_EQ(session.ClipKey, "");
    }
}

TEST_F(DragTest, TheWrongLevelIsRefusedAndARefusalKeepsThePlant)
{
    startOnPlant();
    draw(tree(), atNode("2_1_1"), atNode("Root"));
    EXPECT_EQ(words(), "Not here");
    desktop.script.expect(texts(510), kOk);
    drop(tree(), atNode("Root"));
    draw(tree(), atNode("2_1_1"), atNode("1_2"));
    desktop.script.expect(texts(507), kNo);
    drop(tree(), atNode("1_2"));
    EXPECT_TRUE(plant().tree().contains("2_1_1"));
    EXPECT_EQ(plant().selectedNode(), "1_2");
}

TEST_F(DragTest, AParameterGroupOrAPressWithoutAMoveBeginsNothing)
{
    startOnPlant();
    draw(tree(), atNode("3_1_1_G01"), atNode("2_1_2"));
    EXPECT_FALSE(hint());
    drop(tree(), atNode("2_1_2"));
    EXPECT_EQ(plant().selectedNode(), "3_1_1_G01") << "the selection doesn't travel along";
    const QPoint place = atNode("2_1_1");
    mouse(QEvent::MouseButtonPress, tree(), place, Qt::LeftButton);
    mouse(QEvent::MouseMove, tree(), place, Qt::NoButton);
    EXPECT_FALSE(hint());
    drop(tree(), place);
}

TEST_F(DragTest, AnotherButtonAnotherWindowOrAClosedCompanyEndsIt)
{
    startOnPlant();
    const std::function<void()> ends[] = {
        [this] { mouse(QEvent::MouseButtonPress, tree(), atNode("1_3"), Qt::RightButton); },
        [this] {
            QEvent away(QEvent::WindowDeactivate);
            QApplication::sendEvent(tvwBus(), &away);
        },
        [this] { program.database().Disconnect_Database(); },
    };
    for (const auto& end : ends) {
        draw(tree(), atNode("2_1_1"), atNode("1_3"));
        ASSERT_TRUE(hint());
        end();
        EXPECT_FALSE(hint());
        drop(tree(), window()->mapToGlobal(QPoint(60, 200)));
    }
    EXPECT_EQ(support::column(plantFile(), "SELECT IDGrp FROM tbInstrumentsUser WHERE IDItem = 'KT100'"),
              QStringList{"1"});
}

TEST_F(DragTest, CutCopyAndPasteGoByTheirKeysAndATextFieldKeepsThem)
{
    startOnPlant();
    clickNode("1_2");
    QTest::keyClick(window(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(session.ClipKey, "1_2");
    EXPECT_EQ(session.ClipOperation, session::ClipCopy);
    clickNode("Root");
    desktop.script.expect(texts(508), kYes);
    desktop.script.expect(texts(509), kOk);
    QTest::keyClick(window(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(groups(), 4);

    clickNode("Root");
    clickItem("1_3");
    QTest::keyClick(window(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(session.ClipKey, "1_3");
    EXPECT_EQ(session.ClipOperation, session::ClipCut);

    window()->listBus()->showFilter();
    auto* filter = control<QLineEdit>("txtFilter");
    type(filter, "O'H");
    filter->selectAll();
    QTest::keyClick(filter, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(filter->text(), "");
    EXPECT_EQ(session.ClipKey, "1_3") << "the plant's clipboard is another one";
    QTest::keyClick(filter, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(filter->text(), "O'H");
}

TEST_F(DragTest, WhatIsCutIsDrawnPale)
{
    startOnPlant();
    clickNode("Root");
    clickItem("1_1");
    const QImage before = tvwBus()->grab().toImage();
    QTest::keyClick(window(), Qt::Key_X, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_NE(tvwBus()->grab().toImage(), before);
    picture(*window(), "cut");
}

// What the line under the list tells while a job goes on, without its repetitions.
class JobWordsTest : public DragTest, public testing::WithParamInterface<const char*>
{
protected:
    JobWordsTest() { setLanguage(GetParam()); }

    void startJobs(const QString& pictureName)
    {
        start();
        EXPECT_TRUE(words()->isHidden());
        connection_ =
            QObject::connect(&plant(), &structure::Structure::updateProgress, [=, this](int percent) {
                if (!words()->isVisible() || told.value(told.size() - 1) == words()->text())
                    return;
                told << words()->text();
                EXPECT_FALSE(words()->visibleRegion().isEmpty());
                if (percent == 50)
                    window()->grab().save(pictureFolder() + session.Language.Code + '-' + pictureName +
                                          ".png");
            });
    }
    ~JobWordsTest() override { QObject::disconnect(connection_); }
    QLabel* words() const { return control<QLabel>("lblUpdate"); }
    static QString pictureFolder()
    {
        const QString folder = qEnvironmentVariable("CALIDORA_PICTURES");
        return folder.isEmpty() ? "/dev/null/" : folder + '/';
    }

    QStringList told;

private:
    QMetaObject::Connection connection_;
};

TEST_P(JobWordsTest, APasteOfAGroupTellsWhatItIsAt)
{
    startJobs("paste");
    clickNode("1_1");
    QTest::keyClick(window(), Qt::Key_X, Qt::ControlModifier);
    clickNode("Root");
    desktop.script.expect(texts(507), kYes);
    desktop.script.expect(texts(509), kOk);
    QTest::keyClick(window(), Qt::Key_V, Qt::ControlModifier);
    QStringList expected;
    for (const char* step : {"job.instruments", "job.parameters", "job.tree", "job.original"})
        expected << texts.own(step).arg("GRP1");
    EXPECT_EQ(told, expected);
    EXPECT_TRUE(words()->isHidden()) << "the words go with the job";
}

TEST_P(JobWordsTest, AResyncTellsTheInstrumentAndTheMessageWhatWasAdded)
{
    runOnPlant("DELETE FROM tbParametersUser WHERE IDPar IN ('P0101', 'P1101')");
    startJobs("resync");
    clickNode("Root");
    clickItem("1_1");
    desktop.script.expect(texts(511), kYes);
    desktop.script.expect(texts(509) + "\r\n" + texts.own("resync.added").arg(2), kOk);
    button("Resync")->trigger();
    EXPECT_EQ(told, (QStringList{texts.own("job.resync").arg("INST11").arg(1).arg(2).arg(0),
                                 texts.own("job.resync").arg("ALPHA").arg(2).arg(2).arg(1)}));
    EXPECT_TRUE(words()->isHidden());
}

TEST_P(JobWordsTest, TheHintBesideThePointerAndWhatIsCut)
{
    start();
    tvwBus()->expandAll();
    clickNode("2_1_2");
    QTest::keyClick(window(), Qt::Key_X, Qt::ControlModifier);
    draw(tree(), atNode("2_1_1"), atNode("1_3"), Qt::ControlModifier);
    ASSERT_TRUE(hint());
    EXPECT_EQ(DragTest::words(), texts.own("drag.copy").arg("O'Hara"));
    EXPECT_GE(hint()->width(), hint()->sizeHint().width()) << "nothing of the words is cut off";
    const QString folder = qEnvironmentVariable("CALIDORA_PICTURES");
    if (!folder.isEmpty()) {
        QPixmap all = window()->grab();
        QPainter painter(&all);
        painter.drawPixmap(window()->mapFromGlobal(hint()->pos()), hint()->grab());
        painter.end();
        all.save(folder + '/' + session.Language.Code + "-drag-hint.png");
    }
    QTest::keyClick(tvwBus(), Qt::Key_Escape);
}

INSTANTIATE_TEST_SUITE_P(Languages, JobWordsTest,
                         testing::Values("EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"),
                         [](const auto& info) { return std::string(info.param, 2); });

} // namespace
