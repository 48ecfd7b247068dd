#pragma once

#include "session/Forward.h"

#include <QObject>
#include <QString>

namespace structure {

class PlantClipboard;
class Structure;

// Moving and copying by the mouse: an element of the tree or of the list is drawn over a node of the tree and
// dropped there, which pastes it. A plain drag moves, one begun with the Control key copies.
class PlantDrag : public QObject
{
    Q_OBJECT

public:
    enum Source
    {
        FromTree, // tvwBus
        FromList  // lvwBus
    };
    // The drag icons, by their number in the image list.
    static constexpr int kMoveImage = 6;
    static constexpr int kCopyImage = 7;

    PlantDrag(session::Session& session, const session::Texts& texts, Structure& structure,
              PlantClipboard& clipboard);

    // The left button goes down on an element, "" for none.
    void press(Source source, const QString& key);
    // The pointer moves with the button held. True when that begins a drag: of a group or an instrument only,
    // by somebody who may modify the plant.
    bool begin(bool control);
    // The node under the pointer, "" for none.
    void over(const QString& node);
    // The drop on the tree, on the node that over() named last, and the one on the list, which does nothing.
    void dropOnTree();
    void dropOnList() { cancel(); }
    // Escape, a drop elsewhere, a window that goes away: as if nothing had been dragged.
    void cancel();

    bool dragging() const { return Dragging_; }
    const QString& target() const { return target_; }
    int image() const;
    // Whether a drop on the target would be asked about.
    bool fits() const;
    // What a drop would do, in words.
    QString hint() const;

signals:
    void changed(); // the drag begins, ends, or has another target

private:
    void end();

    session::Session& session_;
    const session::Texts& texts_;
    Structure& structure_;
    PlantClipboard& clipboard_;
    bool Dragging_ = false;
    Source source_ = FromTree;
    QString TreeDragNode_, ListDragItem_;
    QString dragged_, target_;
    // What the clipboard held before: a drag that comes to nothing gives it back.
    int operationBefore_ = 0;
    QString keyBefore_;
};

} // namespace structure
