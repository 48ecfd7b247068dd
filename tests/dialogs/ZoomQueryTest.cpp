#include "dialogs/ZoomQuery.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace {

session::ZoomSettings users(const QString& Value)
{
    session::ZoomSettings zoom;
    zoom.Select = "SELECT IDUser AS ID, Name AS Name FROM tbUsers";
    zoom.KeyField = "IDUser";
    zoom.NameField = "Name";
    zoom.Value = Value;
    return zoom;
}

TEST(ZoomQuery, ThePatternFollowsWhatWasTyped)
{
    struct Row
    {
        const char* Value;
        const char* condition;
    };
    for (const Row& row : {
             Row{"*", "IDUser LIKE '%'"},
             Row{"@", "Name LIKE '%'"},
             Row{"12*", "IDUser LIKE '12%'"},
             Row{"*12*", "IDUser LIKE '%12%'"},
             Row{"AB@", "Name LIKE 'AB%'"},
             Row{"*AB@", "Name LIKE '%AB%'"},
             Row{"**", "IDUser LIKE '%%'"},
             Row{"*@", "Name LIKE '%%'"},
             Row{"@*", "IDUser LIKE '@%'"},
             Row{"@@", "Name LIKE '@%'"},
             Row{"1*2*", "IDUser LIKE '1*2%'"},
             Row{"O'H*", "IDUser LIKE 'O''H%'"},
             Row{"'*", "IDUser LIKE '''%'"},
             Row{"50%_*", "IDUser LIKE '50%_%'"},
             Row{"Ха@", "Name LIKE 'Ха%'"},
             Row{" *", "IDUser LIKE ' %'"},
         }) {
        EXPECT_EQ(dialogs::zoomQuery(users(row.Value)),
                  QString("SELECT IDUser AS ID, Name AS Name FROM tbUsers WHERE (") + "(" + row.condition +
                      "))")
            << row.Value;
    }
}

TEST(ZoomQuery, AConditionGroupAndOrderOfTheCallersJoinIn)
{
    session::ZoomSettings zoom = users("*");
    zoom.Where = "State = 0";
    EXPECT_EQ(dialogs::zoomQuery(zoom), "SELECT IDUser AS ID, Name AS Name FROM tbUsers "
                                        "WHERE (State = 0 AND (IDUser LIKE '%'))");
    zoom.GroupBy = "IDUser";
    zoom.OrderBy = "Name";
    EXPECT_EQ(dialogs::zoomQuery(zoom), "SELECT IDUser AS ID, Name AS Name FROM tbUsers "
                                        "WHERE (State = 0 AND (IDUser LIKE '%')) GROUP BY IDUser "
                                        "ORDER BY Name");
}

TEST(ZoomQuery, BlanksAroundAFieldAreDropped)
{
    session::ZoomSettings zoom = users("1*");
    zoom.KeyField = "  IDUser ";
    EXPECT_TRUE(dialogs::zoomQuery(zoom).endsWith("WHERE ((IDUser LIKE '1%'))"));
}

} // namespace
