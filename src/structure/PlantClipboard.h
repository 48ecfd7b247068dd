#pragma once

#include "session/Forward.h"
#include "structure/Duplicate.h"

#include <QObject>

namespace structure {

class PlantEditor;
struct KeyParts;

// Cut, copy and paste of groups and instruments. A cut or a copy notes the key and no more: ClipOperation and
// ClipKey; all the work happens at paste.
class PlantClipboard : public QObject
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        Structure& structure;
        PlantEditor& editor;
    };

    explicit PlantClipboard(const Surroundings& surroundings);

    // The list's selected item.
    void Cut_Item();
    void Copy_Item();
    // The tree's selected node.
    void Cut_Node();
    void Copy_Node();
    // What a drag has drawn to its target.
    void note(int operation, const QString& key);
    // Into the tree's selected node, after a question. A move is a copy under a new number, then a deletion.
    void Paste_Item();
    // Copies an element as Paste_Item does.
    bool Duplicate_Item(Duplicator::Kind kind, const QString& srcIDGrp, const QString& srcIDInst,
                        const QString& targetIDGrp)
    {
        return duplicator_.Duplicate_Item(kind, srcIDGrp, srcIDInst, targetIDGrp);
    }

signals:
    // What a paste of a group is at, in words.
    void stepTold(const QString& words);

private:
    void tellStep(const char* words);
    void paste(const KeyParts& source, const KeyParts& target);
    bool confirmed();
    void forget();
    void tellSourceGone();

    Surroundings with_;
    Duplicator duplicator_;
    // The noted element was deleted. One that gets its number later is another one.
    bool sourceGone_ = false;
};

} // namespace structure
