#pragma once

#include "structure/widgets/OneSelected.h"

#include <QTreeView>

namespace structure {

// The tree as the operator touches it. Tells of nodes taken by mouse or key; a selection made by the program,
// or one that moves because a node went away, is told to nobody.
class NodeView : public OneSelected<QTreeView>
{
    Q_OBJECT

public:
    explicit NodeView(QWidget* parent = nullptr);

    // The node on which something dragged would be dropped, "" for none, and whether it would be taken there.
    void setDropTarget(const QString& key, bool fits);

signals:
    void nodeTaken(const QModelIndex& index);
    void insertPressed();
    void deletePressed();
    void menuWanted(const QPoint& globalPosition);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    bool gesture_ = false;
    QString dropTarget_;
    bool dropFits_ = false;
};

} // namespace structure
