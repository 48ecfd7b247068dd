#pragma once

#include "structure/PlantDrag.h"

#include <QBasicTimer>
#include <QPointer>

class QAbstractItemView;
class QMouseEvent;

namespace structure {

class DragHint;
class NodeView;

// The mouse's way from a press in one view to a drop: draws the target and, beside the pointer, what a drop
// would do. While the button is held, neither selection nor focus moves.
class DragGesture : public QObject
{
    Q_OBJECT

public:
    // `view` is where the drag begins, one that shows keys; `tree` is where it may end.
    DragGesture(PlantDrag& drag, PlantDrag::Source source, QAbstractItemView& view, NodeView& tree);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void goTo(const QPoint& globalPosition);
    void follow();
    bool overTree(const QPoint& globalPosition) const;

    PlantDrag& drag_;
    PlantDrag::Source source_;
    QAbstractItemView& view_;
    NodeView& tree_;
    QPointer<DragHint> hint_;
    QPoint last_;
    bool mine_ = false; // the drag that is under way began here
    QBasicTimer scrolling_;
};

} // namespace structure
