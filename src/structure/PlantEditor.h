#pragma once

#include "structure/NodeKey.h"
#include "structure/Records.h"

namespace session {
class Lookup;
class Texts;
} // namespace session

namespace structure {

// Creating and deleting at the operator's wish. Tree and list change only after the database has.
class PlantEditor
{
public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        Structure& structure;
        session::Lookup& lookup;
    };

    explicit PlantEditor(const Surroundings& surroundings);

    // Adds a group at the root, an instrument in a group; nothing at another node.
    void New_Item();
    // Deletes the list's selected item.
    void Delete_Item();
    // Deletes the tree's selected node.
    void Delete_Node();
    // Removes from database, tree and list.
    bool Erase_Item(const QString& key);

    Records& records() { return records_; }

private:
    void newGroup();
    void newInstrument(const QString& IDGrp);
    QString chooseType();
    void addParamGroupNodes(const QString& IDGrp, const QString& IDInst, const QString& IDItem);
    void editNewItem(const QString& key);
    // What the operator may not do is refused here too, not only closed in the menus.
    bool mayModify() const;
    bool deletionConfirmed();
    void selectItemAt(int row);

    Surroundings with_;
    Records records_;
};

} // namespace structure
