#pragma once

#include <QStyledItemDelegate>

namespace console {

// A line of the console's list: a warning and an error stand out among the others, by colour, weight and
// sign.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace console
