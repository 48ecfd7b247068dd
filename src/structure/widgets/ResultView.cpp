#include "structure/widgets/ResultView.h"

#include "structure/ListModel.h"
#include "widgets/ImageDelegate.h"
#include "widgets/SortHeader.h"

#include <algorithm>

namespace structure {

ResultView::ResultView(ListModel& model, QWidget* parent)
    : QTreeView(parent), model_(model), header_(new widgets::SortHeader(this))
{
    setModel(&model);
    setHeader(header_);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setIconSize({16, 16});
    auto* delegate = new widgets::ImageDelegate(this, ListModel::ImageRole);
    delegate->setMarkRole(ListModel::MarkRole);
    delegate->setRowPadding(2);
    delegate->setPathColumn(2);
    setItemDelegate(delegate);
    header_->setSectionsClickable(true);
    header_->resizeSection(0, 250);
    header_->resizeSection(1, 130);
    // What an instrument holds stands beside what it is to get.
    if (model.columnCount() > 3) {
        header_->resizeSection(0, 220);
        header_->resizeSection(3, 150);
        header_->moveSection(3, 2);
    }

    connect(header_, &QHeaderView::sectionClicked, this, [this](int column) {
        const bool again = column == model_.sortColumn();
        model_.sortByColumn(column, again ? !model_.sortAscending() : true);
        header_->setArrow(column, model_.sortAscending());
        scrollTo(currentIndex());
    });
    connect(this, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { emit taken(model_.keyAt(index.row())); });
}

QString ResultView::selectedKey() const
{
    return model_.keyAt(currentIndex().row());
}

void ResultView::select(const QString& key)
{
    setCurrentIndex(model_.index(std::max(model_.rowOf(key), 0), 0));
}

} // namespace structure
