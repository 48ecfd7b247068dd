#pragma once

#include <QStyledItemDelegate>

namespace structure {

// Draws nodes and items with the picture that their image number names. A model knows numbers, not pictures.
class ImageDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Room above and below a row's text, in points.
    void setRowPadding(int padding) { rowPadding_ = padding; }
    // The one size of every item, in points; an empty one lets each item have its own.
    void setCell(const QSize& cell) { cell_ = cell; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int rowPadding_ = 0;
    QSize cell_;
};

} // namespace structure
