#include "structure/Jump.h"

#include "support/CompanyFixture.h"

#include <QSignalSpy>

using structure::jumpTo;

namespace {

class JumpTest : public support::CompanyFixture
{
};

TEST_F(JumpTest, SelectsTheNodeAboveAndTheElementInItsList)
{
    ASSERT_TRUE(connectPlant());
    const std::array<const char*, 3> rows[] = {
        {"1_3", "Root", "ZEL Bus"},
        {"2_1_2", "1_1", "ZEL Bus\\GRP1"},
        {"3_1_1_G02", "2_1_1", "ZEL Bus\\GRP1\\INST11"},
        {"4_1_1_G02_P0202", "3_1_1_G02", "ZEL Bus\\GRP1\\INST11\\States"},
    };
    for (const auto& [key, node, path] : rows) {
        EXPECT_TRUE(jumpTo(structure, key)) << key;
        EXPECT_EQ(structure.selectedNode(), node);
        EXPECT_EQ(structure.selectedItem(), key);
        EXPECT_EQ(structure.path(), path);
    }
}

TEST_F(JumpTest, OpensTheListAgainThatAFilterNarrowed)
{
    ASSERT_TRUE(connectPlant());
    ASSERT_TRUE(jumpTo(structure, "1_1"));
    structure.list().setFilter("alpha");
    EXPECT_TRUE(jumpTo(structure, "1_3"));
    EXPECT_EQ(structure.list().rowCount(), 3);
    EXPECT_EQ(structure.selectedItem(), "1_3");
}

TEST_F(JumpTest, MenusFollow)
{
    ASSERT_TRUE(connectPlant());
    QSignalSpy menus(&structure, &structure::Structure::itemMenusWanted);
    EXPECT_TRUE(jumpTo(structure, "2_1_1"));
    EXPECT_EQ(menus.count(), 1);
}

TEST_F(JumpTest, SaysWhenTheElementIsGone)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(jumpTo(structure, "1_99"));
    EXPECT_FALSE(jumpTo(structure, "2_99_1"));
    EXPECT_FALSE(jumpTo(structure, "4_1_1_G02_P9999"));
    EXPECT_EQ(structure.selectedItem(), "");
}

} // namespace
