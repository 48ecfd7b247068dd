#include "structure/frmTreeBus.h"

#include "session/Session.h"
#include "structure/Structure.h"
#include "structure/widgets/NodeView.h"
#include "widgets/FormUnits.h"

#include <QResizeEvent>
#include <QVBoxLayout>

namespace structure {

frmTreeBus::frmTreeBus(Structure& structure, session::Session& session, QWidget* parent)
    : QWidget(parent), structure_(structure), session_(session), tvwBus_(new NodeView(this))
{
    setObjectName("frmTreeBus");
    tvwBus_->setObjectName("tvwBus");
    tvwBus_->setModel(&structure.tree());
    setFocusProxy(tvwBus_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tvwBus_);

    connect(tvwBus_, &NodeView::nodeTaken, this,
            [this](const QModelIndex& index) { structure_.clickNode(structure_.tree().keyOf(index)); });
    connect(tvwBus_, &NodeView::insertPressed, this, [this] { emit commandWanted("New"); });
    connect(tvwBus_, &NodeView::deletePressed, this, [this] { emit commandWanted("DeleteNode"); });
    connect(tvwBus_, &NodeView::menuWanted, this, &frmTreeBus::menuWanted);

    connect(&structure, &Structure::nodeSelected, this, &frmTreeBus::follow);
    connect(&structure, &Structure::nodeShown, this,
            [this](const QString& key) { tvwBus_->scrollTo(structure_.tree().indexOf(key)); });
    connect(&structure, &Structure::expandRequested, this, &frmTreeBus::expandOrCollapse);
    connect(&structure.tree(), &QAbstractItemModel::modelReset, this, [this] { expandOrCollapse(false); });
}

void frmTreeBus::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (isVisible())
        session_.TreeBusSet.Width = widgets::formUnits(event->size().width());
}

void frmTreeBus::follow(const QString& key)
{
    const QModelIndex index = structure_.tree().indexOf(key);
    tvwBus_->setCurrentIndex(index);
    if (index.isValid())
        tvwBus_->scrollTo(index);
}

void frmTreeBus::expandOrCollapse(bool expand)
{
    if (expand) {
        tvwBus_->expandAll();
    } else {
        tvwBus_->collapseAll();
        tvwBus_->expand(structure_.tree().indexOf(kRootKey));
    }
}

} // namespace structure
