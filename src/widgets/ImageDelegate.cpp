#include "widgets/ImageDelegate.h"

#include "platform/widgets/Icons.h"

#include <QPainter>

namespace widgets {

namespace {

constexpr double kPale = 0.4;

} // namespace

ImageDelegate::ImageDelegate(QObject* parent, std::optional<int> imageRole)
    : QStyledItemDelegate(parent), imageRole_(imageRole)
{
}

QSize ImageDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!cell_.isEmpty())
        return cell_;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * rowPadding_);
}

void ImageDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    const double opacity = painter->opacity();
    if (paleRole_ && index.data(*paleRole_).toBool())
        painter->setOpacity(opacity * kPale);
    QStyledItemDelegate::paint(painter, option, index);
    painter->setOpacity(opacity);
}

void ImageDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != 0 || !imageRole_)
        return;
    option->icon = platform::imageOf(index.data(*imageRole_).toInt());
    if (!option->icon.isNull())
        option->features |= QStyleOptionViewItem::HasDecoration;
}

} // namespace widgets
