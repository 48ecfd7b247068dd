#pragma once

#include "platform/Forward.h"
#include "platform/RuntimeError.h"
#include "session/Forward.h"
#include "structure/InstrumentMemory.h"
#include "structure/ListModel.h"
#include "structure/NodeKey.h"
#include "structure/TreeModel.h"

#include <QObject>
#include <optional>

namespace structure {

// The plant as it is shown: tree, list, path and what is selected in them; the commands that walk it. The
// windows show what this holds and hand their gestures to it.
class Structure : public QObject
{
    Q_OBJECT

public:
    Structure(session::Session& session, const session::Texts& texts, platform::Operator& op);

    TreeModel& tree() { return tree_; } // tvwBus
    const TreeModel& tree() const { return tree_; }
    ListModel& list() { return list_; } // lvwBus
    InstrumentMemory& memory() { return memory_; }
    const InstrumentMemory& memory() const { return memory_; }
    const QString& path() const { return path_; }                 // lblPath
    const QString& selectedNode() const { return selectedNode_; } // key, "" for none
    const QString& selectedItem() const { return selectedItem_; } // key, "" for none
    // The level that the tree's commands go by.
    int levelOfTree() const;
    // The level that the list's commands go by: that of the node whose children it shows, none while the item
    // "Root" is selected.
    int levelOfList() const;

    bool Add_Node_TreeBus(int level, const QString& IDGrp, const QString& IDInst, const QString& IDParGrp,
                          const QString& caption);
    bool Remove_Node_TreeBus(const QString& key);
    bool Add_Item_ListBus(int level, const QString& IDGrp, const QString& IDInst,
                          const QString& IDParGrpAndPar, const QString& text, const QString& description,
                          const QString& subtext, int icon);
    bool Remove_Item_ListBus(const QString& key);
    void Load_Items_ListBus(const QString& key);
    void Select_Item_ListBus();
    void Select_Node_TreeBus(const QString& listKey);
    void Set_ColName_ListBus(int level);
    // 0 large icons, 1 small icons, 2 list, 3 report; -1 the next one. Stores ListBusSet.View.
    void Set_View_ListBus(int view);
    void ExpandCollapse_TreeBusNodes(int flag);
    // Toggles the tree; stores TreeBusSet.Visible.
    void Hide_TreeBus();
    void Refresh_Item();
    // The same, and the selected item stays selected.
    void reloadList();
    // Shows an item of the list as it is now; nothing where the list doesn't show it.
    void showItem(const ListItem& item);
    // Puts the children of a node in the order in which a company's opening shows them: groups and
    // instruments by name, parameter groups by their number.
    void sortNodes(const QString& key);
    void orderNodes(const QString& key);
    // Draws an element pale, in tree and list: it has been cut and waits to be pasted. "" draws none.
    void showCut(const QString& key);
    // Shows an element of the tree under its new name, in its place among its neighbours.
    void renameNode(const QString& key, const QString& caption);
    QString Search_ParamEnum(const QString& IDPar, const QString& Value);

    // Gestures
    // ----------------------------------------------------------------------------------------------------
    void clickNode(const QString& key);  // tvwBus_NodeClick, and a mouse down or arrow key on a node
    void pressItem(const QString& key);  // mouse down in the list, or arrow keys
    void openItem(const QString& key);   // double click: walks into a container, property of a parameter
    void clickColumn(int column);        // sorts, flips on the second click
    void selectNode(const QString& key); // selects without loading
    void selectItem(const QString& key);
    // The state with nothing: tree, list, path and selection empty.
    void clearAll();
    // The state of a company just opened: the root in the tree, the item "Root" in the list.
    void showRootOnly();
    // Nodes added between the two calls come in at once; the last group added is shown at the end.
    void beginFilling();
    void endFilling();
    void setPath(const QString& path);

signals:
    void pathChanged();
    void nodeSelected(const QString& key); // the tree view follows
    void itemSelected(const QString& key);
    void nodeShown(const QString& key); // scroll a new group into view
    void viewChanged(int view);
    void treeVisibilityChanged(bool visible);
    void expandRequested(bool expand);
    // Menus and toolbar follow the level: EnableDisable_MainMenu and EnableDisable_TlbMainButtons.
    void levelLoaded(int level);
    void nodeMenusWanted();                  // EnableDisable_Menu of frmTreeBus
    void itemMenusWanted();                  // EnableDisable_Menu of frmListBus
    void propertyWanted(const QString& key); // a parameter was opened
    void updateShown(bool visible);          // prgUpdate
    void updateProgress(int percent);        // prgUpdate
    void listFocusWanted();

private:
    void showRootItem();
    void selectWithPath(const QString& key);
    void fillList(int level, const KeyParts& ids, std::optional<platform::RuntimeError>& badChoice);
    QString choiceOf(const QString& IDPar, const QString& Value) const;

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    TreeModel tree_;
    ListModel list_;
    InstrumentMemory memory_;
    QString path_, selectedNode_, selectedItem_;
    QString newestGroup_;
    bool treeVisible_ = true; // as the window starts; TreeBusSet.Visible follows at the first Hide_TreeBus
};

// Sets State 0 for everything below the key; Value is never touched.
bool Restore_Item(session::Session& session, platform::Operator& op, const QString& key);

} // namespace structure
