#include "structure/widgets/DragGesture.h"

#include "platform/widgets/Icons.h"
#include "structure/TreeModel.h"
#include "structure/widgets/DragHint.h"
#include "structure/widgets/NodeView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>

namespace structure {

namespace {

constexpr int kScrollEdge = 24; // points from the tree's upper and lower edge
constexpr int kScrollInterval = 60;

} // namespace

DragGesture::DragGesture(PlantDrag& drag, PlantDrag::Source source, QAbstractItemView& view, NodeView& tree)
    : QObject(&view), drag_(drag), source_(source), view_(view), tree_(tree)
{
    view_.installEventFilter(this);
    view_.viewport()->installEventFilter(this);
    connect(&drag, &PlantDrag::changed, this, &DragGesture::follow);
}

bool DragGesture::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (watched == view_.viewport())
            press(*static_cast<QMouseEvent*>(event));
        return mine_;
    case QEvent::MouseMove: {
        auto* moved = static_cast<QMouseEvent*>(event);
        if (watched != view_.viewport() || !(moved->buttons() & Qt::LeftButton))
            return false;
        move(*moved);
        return true;
    }
    case QEvent::MouseButtonRelease:
        if (mine_)
            release(*static_cast<QMouseEvent*>(event));
        return false;
    case QEvent::KeyPress:
        if (mine_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            drag_.cancel();
        return mine_;
    case QEvent::ShortcutOverride:
        if (mine_)
            event->accept();
        return mine_;
    case QEvent::Hide:
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
        if (mine_)
            drag_.cancel();
        return false;
    default:
        return false;
    }
}

void DragGesture::press(const QMouseEvent& event)
{
    // Another button while one is drawing something: that is a change of mind.
    if (mine_) {
        drag_.cancel();
        return;
    }
    last_ = event.globalPosition().toPoint();
    const QModelIndex pressed = view_.indexAt(event.position().toPoint());
    const bool left = event.button() == Qt::LeftButton;
    drag_.press(source_, left ? pressed.siblingAtColumn(0).data(TreeModel::KeyRole).toString() : QString());
}

void DragGesture::move(const QMouseEvent& event)
{
    const QPoint now = event.globalPosition().toPoint();
    if (now == last_)
        return;
    last_ = now;
    if (!drag_.dragging()) {
        mine_ = true;
        mine_ = drag_.begin(event.modifiers() & Qt::ControlModifier);
    }
    if (mine_)
        goTo(now);
}

void DragGesture::release(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint now = event.globalPosition().toPoint();
    goTo(now);
    if (!overTree(now)) {
        drag_.cancel();
        return;
    }
    // The question that follows waits until the view has taken the release.
    QMetaObject::invokeMethod(&drag_, &PlantDrag::dropOnTree, Qt::QueuedConnection);
}

void DragGesture::goTo(const QPoint& globalPosition)
{
    const bool inTree = overTree(globalPosition);
    const QPoint place = tree_.viewport()->mapFromGlobal(globalPosition);
    drag_.over(inTree ? tree_.indexAt(place).data(TreeModel::KeyRole).toString() : QString());
    const bool atEdge =
        inTree && (place.y() < kScrollEdge || place.y() > tree_.viewport()->height() - kScrollEdge);
    if (atEdge && !scrolling_.isActive())
        scrolling_.start(kScrollInterval, this);
    else if (!atEdge)
        scrolling_.stop();
    if (hint_)
        hint_->goTo(globalPosition);
}

// A tree longer than its window scrolls while the pointer waits at its edge.
void DragGesture::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != scrolling_.timerId())
        return QObject::timerEvent(event);
    QScrollBar* bar = tree_.verticalScrollBar();
    const bool up = tree_.viewport()->mapFromGlobal(last_).y() < kScrollEdge;
    bar->setValue(bar->value() + (up ? -bar->singleStep() : bar->singleStep()));
    goTo(last_);
}

void DragGesture::follow()
{
    if (!mine_)
        return;
    tree_.setDropTarget(drag_.target(), drag_.fits());
    if (drag_.dragging()) {
        if (!hint_)
            hint_ = new DragHint(view_.window());
        hint_->tell(platform::icon(drag_.image() == PlantDrag::kCopyImage ? "drag-copy" : "drag-move"),
                    drag_.hint(), last_);
        return;
    }
    mine_ = false;
    scrolling_.stop();
    delete hint_;
}

bool DragGesture::overTree(const QPoint& globalPosition) const
{
    const QWidget* under = QApplication::widgetAt(globalPosition);
    return under && (under == tree_.viewport() || tree_.viewport()->isAncestorOf(under));
}

} // namespace structure
