#pragma once

#include <QString>
#include <vector>

namespace users {

// A text of an operator's record: its control and its column. What is typed into some of them is raised.
struct TextOfUser
{
    const char* control;
    const char* column;
    int limit;
    bool capitals;
};

// In the order in which Enter walks them.
inline const std::vector<TextOfUser> kTexts{
    {"txtIDUser", "IDUser", 8, true}, {"txtUser", "Name", 80, true},
    {"txtPwd", "Password", 8, false}, {"txtPhone", "Phone", 20, true},
    {"txtFax", "Fax", 20, true},      {"txtMobilePhone", "MobilePhone", 20, true},
    {"txtEMail", "EMail", 80, false},
};

// A right: its check box, its column, and the offset of its words.
struct RightOfUser
{
    const char* control;
    const char* column;
    int text;
};

inline const std::vector<RightOfUser> kRights{
    {"chkUpgradeDb", "UpgradeDb", 70},     {"chkSettings", "Settings", 72},   {"chkModify", "Modify", 74},
    {"chkEventViewer", "EventViewer", 76}, {"chkReadWrite", "ReadWrite", 78},
};

// What stands in State, which is the line of lbxState too.
constexpr int kEnabled = 0;
constexpr int kDisabled = 1;

} // namespace users
