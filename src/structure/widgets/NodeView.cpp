#include "structure/widgets/NodeView.h"

#include "structure/TreeModel.h"
#include "widgets/ImageDelegate.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace structure {

NodeView::NodeView(QWidget* parent) : OneSelected(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setIconSize({16, 16});
    setEditTriggers(NoEditTriggers);
    auto* delegate = new widgets::ImageDelegate(this, TreeModel::ImageRole);
    delegate->setPaleRole(TreeModel::PaleRole);
    delegate->setMarkRole(TreeModel::MarkRole);
    delegate->setRowPadding(2);
    setItemDelegate(delegate);
}

void NodeView::setDropTarget(const QString& key, bool fits)
{
    dropTarget_ = key;
    dropFits_ = fits;
    viewport()->update();
}

void NodeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QTreeView::drawRow(painter, option, index);
    if (dropTarget_.isEmpty() || index.data(TreeModel::KeyRole) != dropTarget_)
        return;
    const QPalette::ColorRole colour = dropFits_ ? QPalette::Highlight : QPalette::Mid;
    painter->save();
    painter->setPen(QPen(palette().color(colour), 2, dropFits_ ? Qt::SolidLine : Qt::DotLine));
    painter->drawRoundedRect(visualRect(index).adjusted(1, 1, -1, -1), 3, 3);
    painter->restore();
}

void NodeView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex before = currentIndex();
    {
        const QScopedValueRollback<bool> gesture(gesture_, true);
        QTreeView::mousePressEvent(event);
    }
    // A press on the selected node loads it afresh, though nothing changes in the tree.
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (pressed.isValid() && pressed == before)
        emit nodeTaken(pressed);
}

void NodeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Insert) {
        emit insertPressed();
        return;
    }
    if (event->key() == Qt::Key_Delete) {
        emit deletePressed();
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        if (currentIndex().isValid())
            emit menuWanted(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
        return;
    }
    const QScopedValueRollback<bool> gesture(gesture_, true);
    QTreeView::keyPressEvent(event);
}

void NodeView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex at = byKey ? currentIndex() : indexAt(event->pos());
    if (at.isValid())
        emit menuWanted(byKey ? viewport()->mapToGlobal(visualRect(at).center()) : event->globalPos());
}

void NodeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (gesture_ && current.isValid())
        emit nodeTaken(current);
}

} // namespace structure
