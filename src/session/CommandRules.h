#pragma once

#include <QString>
#include <QStringList>
#include <map>

namespace session {

struct UserRecord;

// What the operator may do. Being the administrator gives no right but the one over the users.
struct Rights
{
    bool loggedIn = false;
    bool administrator = false;
    bool upgradeDb = false;
    bool modify = false;
    bool eventViewer = false;
    bool readWrite = false;

    static Rights of(const UserRecord& user);
};

// Command or menu name -> enabled. Holds only what a rule touches: everything else stays as it is.
using EnabledStates = std::map<QString, bool>;

namespace rules {

// Buttons of tlbMain by key; `level` -2 no company, -1 no tree selection, 0 and above the selected node's
// level.
EnabledStates toolbar(int level, const Rights& rights, bool treeVisible);
// Menus of frmListBus; `level` from -1.
EnabledStates listMenus(int level, const Rights& rights);
// Menus of frmTreeBus; `level` from -1 to 3, any other touches nothing.
EnabledStates treeMenus(int level, const Rights& rights);
// Popup mnuBus of frmTreeBus; `level` from -1 to 3.
EnabledStates treePopup(int level, const Rights& rights);
// Popup mnuBus of frmListBus; `level` from -1.
EnabledStates listPopup(int level, const Rights& rights);
// Whether an operator with these rights may have a command run at all, whatever is selected.
bool permits(const QString& command, const Rights& rights);
// The menus of both children that stay enabled without a company.
const QStringList& menusWithoutCompany();

} // namespace rules

} // namespace session
