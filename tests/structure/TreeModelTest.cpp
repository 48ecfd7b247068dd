#include "structure/TreeModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using structure::TreeModel;

namespace {

// Watched all the time: the tester ends the program when the model breaks a rule of models.
class TreeModelTest : public testing::Test
{
protected:
    void plant()
    {
        tree.addNode("", "Root", "ZEL Bus", 1);
        tree.addNode("Root", "1_1", "beta", 2);
        tree.addNode("Root", "1_2", "Alpha", 2);
        tree.addNode("Root", "1_3", "ALPHA", 2);
        tree.addNode("1_1", "2_1_1", "beta", 3);
        tree.addNode("2_1_1", "3_1_1_G01", "Measures", 4);
    }
    QStringList captionsUnder(const QString& key) const
    {
        QStringList captions;
        const QModelIndex parent = tree.indexOf(key);
        for (int row = 0; row < tree.rowCount(parent); ++row)
            captions << tree.index(row, 0, parent).data().toString();
        return captions;
    }

    TreeModel tree;
    QAbstractItemModelTester tester{&tree, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TreeModelTest, IsEmptyAtFirst)
{
    EXPECT_EQ(tree.rowCount(), 0);
    EXPECT_EQ(tree.nodeCount(), 0);
    EXPECT_FALSE(tree.indexOf("Root").isValid());
    EXPECT_EQ(tree.keyOf({}), "");
    EXPECT_EQ(tree.fullPathOf("Root"), "");
}

TEST_F(TreeModelTest, KeepsChildrenInTheOrderInWhichTheyWereAdded)
{
    plant();
    EXPECT_EQ(captionsUnder("Root"), (QStringList{"beta", "Alpha", "ALPHA"}));
    EXPECT_EQ(tree.nodeCount(), 6);
    const QModelIndex instrument = tree.indexOf("2_1_1");
    EXPECT_EQ(instrument.data(TreeModel::KeyRole), "2_1_1");
    EXPECT_EQ(instrument.data(TreeModel::ImageRole), 3);
    EXPECT_EQ(tree.keyOf(instrument.parent()), "1_1");
}

TEST_F(TreeModelTest, TellsParentsAndPaths)
{
    plant();
    EXPECT_EQ(tree.parentOf("3_1_1_G01"), "2_1_1");
    EXPECT_EQ(tree.parentOf("Root"), "");
    EXPECT_EQ(tree.parentOf("1_99"), "");
    EXPECT_EQ(tree.fullPathOf("3_1_1_G01"), "ZEL Bus\\beta\\beta\\Measures");
}

TEST_F(TreeModelTest, RefusesANodeWithoutParentAndAKeyTwice)
{
    EXPECT_FALSE(tree.addNode("Root", "1_1", "no root yet", 2));
    plant();
    EXPECT_FALSE(tree.addNode("1_99", "2_99_1", "no such group", 3));
    EXPECT_FALSE(tree.addNode("Root", "1_1", "again", 2));
    EXPECT_FALSE(tree.addNode("", "Root2", "a second root", 1));
    EXPECT_EQ(tree.nodeCount(), 6);
}

TEST_F(TreeModelTest, RemovesANodeWithAllBelow)
{
    plant();
    EXPECT_TRUE(tree.removeNode("1_1"));
    EXPECT_EQ(captionsUnder("Root"), (QStringList{"Alpha", "ALPHA"}));
    for (const char* key : {"1_1", "2_1_1", "3_1_1_G01"})
        EXPECT_FALSE(tree.contains(key)) << key;
    EXPECT_EQ(tree.indexOf("1_3").row(), 1);
    EXPECT_FALSE(tree.removeNode("1_1"));
    EXPECT_TRUE(tree.addNode("Root", "1_1", "beta", 2)) << "its key is free again";
    EXPECT_EQ(captionsUnder("1_1"), QStringList());
}

TEST_F(TreeModelTest, RemovingTheRootLeavesNothing)
{
    plant();
    EXPECT_TRUE(tree.removeNode("Root"));
    EXPECT_EQ(tree.nodeCount(), 0);
    EXPECT_EQ(tree.rowCount(), 0);
}

TEST_F(TreeModelTest, SortsChildrenWithoutRegardToCaseAndKeepsEqualOnesInOrder)
{
    plant();
    const QPersistentModelIndex held(tree.indexOf("1_1"));
    tree.setCaption("1_3", "alpha");
    tree.sortChildren("Root");
    EXPECT_EQ(captionsUnder("Root"), (QStringList{"Alpha", "alpha", "beta"}));
    EXPECT_EQ(tree.keyOf(held), "1_1");
    EXPECT_EQ(held.row(), 2);
    tree.sortChildren("1_99");
    EXPECT_EQ(tree.nodeCount(), 6);
}

TEST_F(TreeModelTest, ACaptionChangesInPlace)
{
    plant();
    QSignalSpy changed(&tree, &TreeModel::dataChanged);
    EXPECT_TRUE(tree.setCaption("1_2", "Gamma"));
    EXPECT_FALSE(tree.setCaption("1_99", "Gamma"));
    EXPECT_EQ(tree.captionOf("1_2"), "Gamma");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(TreeModelTest, ABulkComesInWithOneReset)
{
    QSignalSpy resets(&tree, &TreeModel::modelReset);
    QSignalSpy inserts(&tree, &TreeModel::rowsInserted);
    tree.beginBulk();
    EXPECT_TRUE(tree.inBulk());
    plant();
    tree.setCaption("1_1", "zeta");
    tree.removeNode("1_3");
    tree.sortChildren("Root");
    tree.endBulk();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(inserts.count(), 0);
    EXPECT_EQ(captionsUnder("Root"), (QStringList{"Alpha", "zeta"}));
}

} // namespace
