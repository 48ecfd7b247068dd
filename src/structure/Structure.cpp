#include "structure/Structure.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Image.h"

namespace structure {

using platform::guarded;

namespace {

constexpr int kViews = 4;
constexpr int kNextView = -1;

[[noreturn]] void failOnElement(const QString& key)
{
    platform::fail(platform::errors::kItemNotFound, QStringLiteral("Element '%1' not found.").arg(key));
}

[[noreturn]] void failOnNewElement(const QString& key)
{
    platform::fail(platform::errors::kInvalidCall,
                   QStringLiteral("Element '%1' is there already, or nothing stands above it.").arg(key));
}

} // namespace

Structure::Structure(session::Session& session, const session::Texts& texts, platform::Operator& op)
    : session_(session), texts_(texts), operator_(op)
{
}

// Tree and list, element by element
// ------------------------------------------------------------------------------

bool Structure::Add_Node_TreeBus(int level, const QString& IDGrp, const QString& IDInst,
                                 const QString& IDParGrp, const QString& caption)
{
    return guarded("Module/Add_Node_TreeBus", [&] {
        const QString key = Compose_Key(level + 1, IDGrp, IDInst, IDParGrp);
        if (!tree_.addNode(Compose_Key(level, IDGrp, IDInst, IDParGrp), key, caption, imageOfNode(level)))
            failOnNewElement(key);
        if (level == kGroup) {
            newestGroup_ = key;
            if (!tree_.inBulk())
                emit nodeShown(key);
        }
        return true;
    });
}

bool Structure::Remove_Node_TreeBus(const QString& key)
{
    return guarded("Module/Remove_Node_TreeBus", [&] {
        const QString above = tree_.parentOf(key);
        if (!tree_.removeNode(key))
            failOnElement(key);
        memory_.forgetBelow(key);
        // A selection that went with the node passes to the element above it.
        if (!tree_.contains(selectedNode_))
            selectNode(above);
        setPath(tree_.fullPathOf(selectedNode_));
        return true;
    });
}

bool Structure::Add_Item_ListBus(int level, const QString& IDGrp, const QString& IDInst,
                                 const QString& IDParGrpAndPar, const QString& text,
                                 const QString& description, const QString& subtext, int icon)
{
    return guarded("Module/Add_Item_ListBus", [&] {
        QString key = QString::number(level) + u'_' + IDGrp;
        for (const QString* id : {&IDInst, &IDParGrpAndPar}) {
            if (!id->isEmpty())
                key += u'_' + *id;
        }
        if (!list_.addItem({key, text, subtext, description, icon}))
            failOnNewElement(key);
        return true;
    });
}

bool Structure::Remove_Item_ListBus(const QString& key)
{
    return guarded("Module/Remove_Item_ListBus", [&] {
        if (!list_.removeItem(key))
            failOnElement(key);
        if (selectedItem_ == key)
            selectItem({});
        return true;
    });
}

// Walking
// --------------------------------------------------------------------------------------------------------

void Structure::Select_Item_ListBus()
{
    guarded("Module/Select_Item_ListBus", [&] {
        const QString parent = tree_.parentOf(selectedNode_);
        if (parent.isEmpty()) {
            // Above the root nothing is selected, and the list shows the root itself.
            selectNode({});
            showRootItem();
            emit levelLoaded(kNoSelection);
        } else {
            const QString left = selectedNode_;
            Load_Items_ListBus(parent);
            selectNode(parent);
            if (list_.item(left))
                selectItem(left);
        }
        setPath(tree_.fullPathOf(selectedNode_));
    });
}

void Structure::Select_Node_TreeBus(const QString& listKey)
{
    guarded("Module/Select_Node_TreeBus", [&] { selectWithPath(parentKey(listKey)); });
}

void Structure::Refresh_Item()
{
    if (!selectedNode_.isEmpty())
        Load_Items_ListBus(selectedNode_);
}

void Structure::reloadList()
{
    const QString selected = selectedItem_;
    Refresh_Item();
    if (list_.item(selected))
        selectItem(selected);
}

void Structure::showItem(const ListItem& item)
{
    list_.updateItem(item);
}

void Structure::sortNodes(const QString& key)
{
    tree_.sortChildren(key);
}

void Structure::orderNodes(const QString& key)
{
    tree_.orderChildren(key);
}

void Structure::showCut(const QString& key)
{
    tree_.setPaleKey(key);
    list_.setPaleKey(key);
}

void Structure::renameNode(const QString& key, const QString& caption)
{
    if (!tree_.setCaption(key, caption))
        return;
    tree_.sortChildren(tree_.parentOf(key));
    setPath(tree_.fullPathOf(selectedNode_));
}

void Structure::clickNode(const QString& key)
{
    guarded("frmTreeBus.tvwBus_NodeClick", [&] {
        selectWithPath(key);
        Load_Items_ListBus(key);
        emit nodeMenusWanted();
    });
}

void Structure::pressItem(const QString& key)
{
    selectItem(key);
    Select_Node_TreeBus(key);
    emit itemMenusWanted();
}

int Structure::levelOfTree() const
{
    return selectedNode_.isEmpty() ? int(kNoSelection) : Extract_Level(selectedNode_);
}

int Structure::levelOfList() const
{
    return selectedItem_ == kRootKey ? int(kNoSelection) : levelOfTree();
}

void Structure::openItem(const QString& key)
{
    guarded("frmListBus.lvwBus_DblClick", [&] {
        if (levelOfTree() == kParamGroup) {
            emit propertyWanted(key);
            return;
        }
        selectWithPath(key);
        Load_Items_ListBus(key);
    });
}

void Structure::selectWithPath(const QString& key)
{
    if (!tree_.contains(key))
        failOnElement(key);
    selectNode(key);
    setPath(tree_.fullPathOf(key));
}

void Structure::selectNode(const QString& key)
{
    selectedNode_ = key;
    emit nodeSelected(key);
}

void Structure::selectItem(const QString& key)
{
    selectedItem_ = key;
    emit itemSelected(key);
}

void Structure::setPath(const QString& path)
{
    path_ = path;
    list_.setPlace(path);
    emit pathChanged();
}

// The whole plant
// ------------------------------------------------------------------------------------------------

void Structure::clearAll()
{
    tree_.clear();
    list_.clear();
    newestGroup_.clear();
    showCut({});
    selectNode({});
    selectItem({});
    setPath({});
}

void Structure::showRootOnly()
{
    clearAll();
    tree_.addNode({}, kRootKey, kRootCaption, int(Image::Root));
    showRootItem();
    setPath(kRootCaption);
}

void Structure::showRootItem()
{
    list_.setItems({{kRootKey, kRootCaption, {}, {}, int(Image::Root)}});
    selectItem({});
    Set_ColName_ListBus(kNoSelection);
}

void Structure::beginFilling()
{
    tree_.beginBulk();
}

void Structure::endFilling()
{
    tree_.endBulk();
    if (!newestGroup_.isEmpty())
        emit nodeShown(newestGroup_);
}

// Appearance
// -----------------------------------------------------------------------------------------------------

void Structure::Set_ColName_ListBus(int level)
{
    guarded("Module/Set_ColName_ListBus", [&] {
        const QString name = texts_(session::rows::kName);
        switch (level) {
        case kNoSelection:
        case kInstrument:
            list_.setColumnCaptions({name, QString(), QString()});
            break;
        case kRoot:
            list_.setColumnCaptions(
                {name, texts_(session::rows::kPhone), texts_(session::rows::kDescription)});
            break;
        case kGroup:
            list_.setColumnCaptions(
                {name, texts_(session::rows::kAddress), texts_(session::rows::kDescription)});
            break;
        case kParamGroup:
            list_.setColumnCaptions({name, texts_(session::rows::kValue), QString()});
            break;
        default:
            break;
        }
    });
}

void Structure::Set_View_ListBus(int view)
{
    guarded("Module/Set_View_ListBus", [&] {
        const int chosen = view == kNextView ? (session_.ListBusSet.View + 1) % kViews : view;
        if (chosen < 0 || chosen >= kViews)
            platform::fail(platform::errors::kInvalidCall, QStringLiteral("There is no view %1.").arg(view));
        session_.ListBusSet.View = qint16(chosen);
        emit viewChanged(chosen);
    });
}

void Structure::ExpandCollapse_TreeBusNodes(int flag)
{
    const platform::BusyPointer busy(operator_);
    emit expandRequested(flag != 0);
}

void Structure::Hide_TreeBus()
{
    treeVisible_ = !treeVisible_;
    session_.TreeBusSet.Visible = treeVisible_ ? -1 : 0;
    emit treeVisibilityChanged(treeVisible_);
}

void Structure::clickColumn(int column)
{
    const bool again = column == list_.sortColumn();
    list_.sortByColumn(column, again ? !list_.sortAscending() : true);
}

} // namespace structure
