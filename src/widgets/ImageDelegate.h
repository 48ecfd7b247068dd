#pragma once

#include <QStyledItemDelegate>
#include <optional>

namespace widgets {

// Draws nodes and items with the picture that their image number names. A model knows numbers, not pictures.
class ImageDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // `imageRole` is the role under which the model tells its image numbers; a model without any has none.
    explicit ImageDelegate(QObject* parent, std::optional<int> imageRole = {});
    // The role under which the model tells what is drawn pale.
    void setPaleRole(int role) { paleRole_ = role; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // Room above and below a row's text, in points.
    void setRowPadding(int padding) { rowPadding_ = padding; }
    // The one size of every item, in points; an empty one lets each item have its own.
    void setCell(const QSize& cell) { cell_ = cell; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    std::optional<int> imageRole_;
    std::optional<int> paleRole_;
    int rowPadding_ = 0;
    QSize cell_;
};

} // namespace widgets
