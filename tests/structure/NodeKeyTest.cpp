#include "structure/NodeKey.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

using namespace structure;

namespace {

TEST(NodeKeyTest, ExtractsTheLevel)
{
    const std::pair<const char*, int> rows[] = {
        {"Root", 0},         {"1_12", 1}, {"2_12_3", 2},      {"3_12_3_G07", 3}, {"4_12_3_G07_P0815", 4},
        {"-1_whatever", -1}, {"5_", 5},   {"32767_1", 32767},
    };
    for (const auto& [key, level] : rows)
        EXPECT_EQ(Extract_Level(key), level) << key;
}

TEST(NodeKeyTest, FailsOnATextThatIsNoKey)
{
    for (const char* key : {"", "root", "ROOT", "12", "_1", "x_1", "1.5_1", "32768_1", "99999999999_1"})
        EXPECT_THROW(Extract_Level(key), platform::RuntimeError) << key;
}

TEST(NodeKeyTest, TakesAKeyApart)
{
    struct Row
    {
        const char *key, *level, *IDGrp, *IDInst, *IDParGrp, *IDPar;
    };
    const Row rows[] = {
        {"Root", "0", "", "", "", ""},
        {"1_12", "1", "12", "", "", ""},
        {"2_12_3", "2", "12", "3", "", ""},
        {"3_12_3_G07", "3", "12", "3", "G07", ""},
        {"4_12_3_G07_P0815", "4", "12", "3", "G07", "P0815"},
        {"4_12_3_G07_P_8", "4", "12", "3", "G07", "P_8"}, // the last part is taken whole
        {"4__3__P", "4", "", "3", "", "P"},
        {"7", "7", "", "", "", ""},
        {"", "", "", "", "", ""},
    };
    for (const Row& row : rows) {
        const KeyParts parts = Extract_Key(row.key);
        EXPECT_EQ(parts.Level, row.level) << row.key;
        EXPECT_EQ(parts.IDGrp, row.IDGrp) << row.key;
        EXPECT_EQ(parts.IDInst, row.IDInst) << row.key;
        EXPECT_EQ(parts.IDParGrp, row.IDParGrp) << row.key;
        EXPECT_EQ(parts.IDPar, row.IDPar) << row.key;
    }
}

TEST(NodeKeyTest, ComposesTheKeyOfTheElementAbove)
{
    const std::pair<int, const char*> rows[] = {
        {-2, ""},      {-1, ""},          {0, "Root"}, {1, "Root"}, {2, "1_12"},
        {3, "2_12_3"}, {4, "3_12_3_G07"}, {5, ""},     {99, ""},
    };
    for (const auto& [level, key] : rows)
        EXPECT_EQ(Compose_Key(level, "12", "3", "G07"), key) << level;
}

TEST(NodeKeyTest, AKeyComposedIsTakenApartAgain)
{
    for (int level = 1; level <= 3; ++level) {
        const KeyParts parts = Extract_Key(Compose_Key(level + 1, "12", "3", "G07"));
        EXPECT_EQ(parts.Level, QString::number(level));
        EXPECT_EQ(Compose_Key(level + 1, parts.IDGrp, parts.IDInst, parts.IDParGrp),
                  Compose_Key(level + 1, "12", "3", "G07"));
    }
}

TEST(NodeKeyTest, AnElementHasOneKey)
{
    EXPECT_EQ(structure::groupKey("12"), "1_12");
    EXPECT_EQ(structure::instrumentKey("12", "3"), "2_12_3");
    EXPECT_EQ(structure::paramGroupKey("12", "3", "G07"), "3_12_3_G07");
    EXPECT_EQ(structure::parameterKey("12", "3", "G07", "P0815"), "4_12_3_G07_P0815");
}

TEST(NodeKeyTest, TheParentIsOneLevelUp)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Root", "Root"},         {"1_12", "Root"},  {"2_12_3", "1_12"},
        {"3_12_3_G07", "2_12_3"}, {"5_1_2_3_4", ""}, {"4_12_3_G07_P0815", "3_12_3_G07"},
    };
    for (const auto& [key, parent] : rows)
        EXPECT_EQ(structure::parentKey(key), parent) << key;
}

} // namespace
