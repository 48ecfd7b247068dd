#pragma once

#include "platform/Operator.h"
#include "session/Forward.h"
#include "structure/NodeKey.h"
#include "structure/Records.h"

#include <functional>

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
        // Lets the operator give a new element its data; returns when that window has closed.
        std::function<void(const QString& key)> editItem = {};
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
    bool deletionConfirmed(const QString& key);
    // What the operator may not do is refused here too, not only closed in the menus.
    bool mayModify() const;
    void selectItemAt(int row);

    Surroundings with_;
    Records records_;
};

} // namespace structure
