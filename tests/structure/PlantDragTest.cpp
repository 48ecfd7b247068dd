#include "structure/PlantDrag.h"

#include "session/Session.h"
#include "structure/PlantClipboard.h"
#include "structure/PlantFixture.h"

#include <QSignalSpy>

using platform::answers::kNo;
using platform::answers::kOk;
using platform::answers::kYes;
using structure::PlantDrag;

namespace {

class PlantDragTest : public plant::PlantFixture
{
protected:
    void clipboardIs(int operation, const QString& key)
    {
        EXPECT_EQ(session.ClipOperation, operation);
        EXPECT_EQ(session.ClipKey, key);
    }
    // Draws an element from the tree or the list over a node.
    void draw(PlantDrag::Source source, const QString& key, bool control, const QString& node)
    {
        structure.clickNode(structure.tree().contains(key) && source == PlantDrag::FromTree
                                ? key
                                : structure.tree().parentOf(key));
        drag.press(source, key);
        ASSERT_TRUE(drag.begin(control));
        drag.over(node);
    }

    structure::PlantClipboard clipboard{{session, texts, op, structure, editor}};
    PlantDrag drag{session, texts, structure, clipboard};
};

TEST_F(PlantDragTest, OnlyGroupsAndInstrumentsAreDrawn)
{
    for (const QString key : {"", "Root", "3_1_1_G01", "4_1_1_G01_P0101"}) {
        drag.press(PlantDrag::FromTree, key);
        EXPECT_FALSE(drag.begin(false)) << qPrintable(key);
        EXPECT_FALSE(drag.dragging());
    }
    for (const QString key : {"1_1", "2_1_1"}) {
        drag.press(PlantDrag::FromList, key);
        EXPECT_TRUE(drag.begin(false)) << qPrintable(key);
        EXPECT_TRUE(drag.dragging());
        drag.cancel();
    }
    EXPECT_FALSE(drag.begin(false)) << "nothing is noted any more";
    setRight("Modify", "0");
    drag.press(PlantDrag::FromTree, "1_1");
    EXPECT_FALSE(drag.begin(false)) << "dragging needs the right to modify";
}

TEST_F(PlantDragTest, APlainDragMovesAndOneWithControlCopies)
{
    draw(PlantDrag::FromTree, "2_1_1", false, "1_2");
    EXPECT_EQ(drag.image(), 6);
    EXPECT_EQ(drag.hint(), "Move to \"ALPHA\"");
    op.expect(texts(507), kYes);
    op.expect(texts(509), kOk);
    drag.dropOnTree();
    EXPECT_EQ(rows("SELECT IDGrp FROM tbInstrumentsUser WHERE IDItem = 'KT100'"), QStringList{"2"});
    EXPECT_EQ(structure.selectedNode(), "1_2");
    EXPECT_FALSE(drag.dragging());

    draw(PlantDrag::FromList, "1_2", true, "Root");
    EXPECT_EQ(drag.image(), 7);
    EXPECT_EQ(drag.hint(), "Copy to \"ZEL Bus\"");
    op.expect(texts(508), kYes);
    op.expect(texts(509), kOk);
    drag.dropOnTree();
    EXPECT_EQ(count("tbGroupsUser"), 4);
    clipboardIs(session::ClipNothing, "");
}

TEST_F(PlantDragTest, TheDropTargetIsToldAsItChanges)
{
    QSignalSpy changed(&drag, &PlantDrag::changed);
    draw(PlantDrag::FromTree, "2_1_1", false, "1_2");
    EXPECT_EQ(changed.size(), 2) << "begun, and over a node";
    EXPECT_TRUE(drag.fits());
    drag.over("1_2");
    EXPECT_EQ(changed.size(), 2);
    for (const QString node : {"", "Root", "2_1_1", "2_1_2", "3_1_1_G01"}) {
        drag.over(node);
        EXPECT_EQ(drag.target(), node);
        EXPECT_FALSE(drag.fits()) << qPrintable(node);
        EXPECT_EQ(drag.hint(), "Not here");
    }
    drag.over("1_1");
    EXPECT_TRUE(drag.fits()) << "its own group takes it as well";
    drag.cancel();
    EXPECT_EQ(drag.target(), "");
    drag.over("1_1");
    EXPECT_EQ(drag.target(), "") << "nothing is being drawn";
}

TEST_F(PlantDragTest, ADropOnNothingEmptiesTheClipboard)
{
    clipboard.Copy_Node();
    session.ClipOperation = session::ClipCopy;
    session.ClipKey = "1_3";
    draw(PlantDrag::FromTree, "2_1_1", false, "");
    drag.dropOnTree();
    clipboardIs(session::ClipNothing, "");
    EXPECT_FALSE(drag.dragging());
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PlantDragTest, ADropOnItselfInTheListOrNowhereChangesNothing)
{
    const std::function<void()> ends[] = {
        [this] { drag.over("1_1"), drag.dropOnTree(); },
        [this] { drag.dropOnList(); },
        [this] { drag.cancel(); },
    };
    for (const auto& end : ends) {
        session.ClipOperation = session::ClipCopy;
        session.ClipKey = "1_3";
        draw(PlantDrag::FromTree, "1_1", false, "Root");
        EXPECT_EQ(session.ClipOperation, session::ClipCut);
        end();
        clipboardIs(session::ClipCopy, "1_3");
        EXPECT_FALSE(drag.dragging());
    }
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PlantDragTest, ADropOnTheWrongLevelIsRefused)
{
    draw(PlantDrag::FromTree, "1_1", false, "1_2");
    op.expect(texts(510), kOk);
    drag.dropOnTree();
    EXPECT_EQ(count("tbGroupsUser"), 3);
    clipboardIs(session::ClipCut, "1_1");
    EXPECT_EQ(structure.selectedNode(), "1_2");
    EXPECT_EQ(listKeys(), QStringList{"2_2_1"}) << "the list shows what the tree's selection holds";
}

TEST_F(PlantDragTest, ANoKeepsWhatWasDrawnForALaterPaste)
{
    draw(PlantDrag::FromTree, "2_1_1", false, "1_3");
    op.expect(texts(507), kNo);
    drag.dropOnTree();
    clipboardIs(session::ClipCut, "2_1_1");
    EXPECT_TRUE(structure.tree().indexOf("2_1_1").data(structure::TreeModel::PaleRole).toBool());
}

TEST_F(PlantDragTest, ACompanyThatClosesEndsTheDrag)
{
    draw(PlantDrag::FromTree, "2_1_1", false, "1_2");
    database.Disconnect_Database();
    EXPECT_FALSE(drag.dragging());
    drag.dropOnTree();
    EXPECT_TRUE(op.boxes.empty());

    ASSERT_TRUE(connectPlant());
    drag.press(PlantDrag::FromTree, "1_1");
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(drag.begin(false)) << "the press was on the company before";
}

TEST_F(PlantDragTest, ATargetThatIsGoneIsAFailureOfTheDrop)
{
    draw(PlantDrag::FromTree, "2_1_1", false, "1_3");
    structure.Remove_Node_TreeBus("1_3");
    drag.dropOnTree();
    failures.expectUnder("frmTreeBus.tvwBus_NodeClick");
    EXPECT_EQ(count("tbInstrumentsUser"), 3);
    ASSERT_TRUE(connectPlant());
}

} // namespace
