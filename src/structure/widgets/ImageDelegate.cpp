#include "structure/widgets/ImageDelegate.h"

#include "platform/widgets/Icons.h"
#include "structure/ListModel.h"
#include "structure/TreeModel.h"

namespace structure {

// Both models answer to the same roles.
static_assert(int(ListModel::ImageRole) == int(TreeModel::ImageRole));

QSize ImageDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!cell_.isEmpty())
        return cell_;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * rowPadding_);
}

void ImageDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != 0)
        return;
    option->icon = platform::imageOf(index.data(ListModel::ImageRole).toInt());
    if (!option->icon.isNull())
        option->features |= QStyleOptionViewItem::HasDecoration;
}

} // namespace structure
