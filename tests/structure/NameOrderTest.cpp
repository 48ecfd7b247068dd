#include "structure/NameOrder.h"

#include "support/CompanyFixture.h"

using structure::compareNames;

namespace {

int sign(int number)
{
    return (number > 0) - (number < 0);
}

TEST(NameOrderTest, FoldsLatinLettersOnlyAndOrdersTheRestByNumber)
{
    struct Row
    {
        QString one, other;
        int order;
    };
    const Row rows[] = {
        {"", "", 0},          {"", "a", -1},  {"a", "", 1},   {"alpha", "ALPHA", 0}, {"alpha", "ALPHAS", -1},
        {"Beta", "alpha", 1}, {"a", "Z", -1}, {"A", "[", 1},  {"_", "a", -1},        {"a2", "A10", 1},
        {"ä", "Ä", 1},        {"Z", "Ä", -1}, {"б", "Б", 1},  {"Я", "а", -1},        {"❄", "😀", -1},
        {"\uFFFD", "😀", -1},  {"😀", "😁", -1}, {"@", "A", -1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(sign(compareNames(row.one, row.other)), row.order)
            << qPrintable(row.one + " and " + row.other);
        EXPECT_EQ(sign(compareNames(row.other, row.one)), -row.order)
            << qPrintable(row.other + " and " + row.one);
    }
}

class NameOrderInCompanyTest : public support::CompanyFixture
{
};

TEST_F(NameOrderInCompanyTest, IsTheOrderInWhichTheCompanyGivesItsGroups)
{
    runOnPlant(
        "DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;"
        "INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (1, 'äpfel'), (2, 'ZEL'), (3, 'Äpfel'), (4, 'zel 2'), "
        "(5, 'Ель'), (6, 'ель'), (7, '[1]'), (8, '_'), (9, '\uFFFD'), (10, '😀'), (11, 'aa'), (12, 'AB');");
    QStringList names = support::column(plantFile(), "SELECT Name FROM tbGroupsUser ORDER BY Name");
    QStringList sorted = names;
    std::reverse(sorted.begin(), sorted.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const QString& one, const QString& other) { return compareNames(one, other) < 0; });
    EXPECT_EQ(sorted, names);
}

// Whoever renames sees at once what the next load would show.
TEST_F(NameOrderInCompanyTest, ARenamedNodeStandsWhereTheNextLoadPutsIt)
{
    runOnPlant("UPDATE tbGroupsUser SET Name = 'ель' WHERE IDGrp = 1; UPDATE tbGroupsUser SET Name = 'ЯМА' "
               "WHERE IDGrp = 2;");
    ASSERT_TRUE(connectPlant());
    const auto groups = [this] {
        QStringList captions;
        const QModelIndex root = structure.tree().indexOf("Root");
        for (int row = 0; row < structure.tree().rowCount(root); ++row)
            captions << structure.tree().captionOf(
                structure.tree().keyOf(structure.tree().index(row, 0, root)));
        return captions;
    };
    runOnPlant("UPDATE tbGroupsUser SET Name = 'Ёлка' WHERE IDGrp = 3;");
    structure.renameNode("1_3", "Ёлка");
    const QStringList shown = groups();
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(shown, groups());
    EXPECT_EQ(shown, (QStringList{"Ёлка", "ЯМА", "ель"}));
}

} // namespace
