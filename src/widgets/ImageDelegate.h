#pragma once

#include <QIcon>
#include <QStyledItemDelegate>
#include <optional>

namespace widgets {

// The picture, drawn in its own colours where it is selected, too: a colour may be what it says.
QIcon inOwnColours(const QIcon& picture);

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

    // The role under which the model tells which signs an image bears.
    void setMarkRole(int role) { markRole_ = role; }

    // The role under which the model tells a value that stands with the text of column 0, and where.
    enum Place
    {
        Below,
        Behind
    };
    void setValueRole(int role, Place place)
    {
        valueRole_ = role;
        valuePlace_ = place;
    }
    // The column of which the end matters most.
    void setPathColumn(int column) { pathColumn_ = column; }

    // Room above and below a row's text, in points.
    void setRowPadding(int padding) { rowPadding_ = padding; }
    // The one size of every item, in points; an empty one lets each item have its own.
    void setCell(const QSize& cell) { cell_ = cell; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void addValue(QStyleOptionViewItem* option, const QString& value) const;

    std::optional<int> imageRole_;
    std::optional<int> paleRole_;
    std::optional<int> markRole_;
    std::optional<int> valueRole_;
    Place valuePlace_ = Below;
    int pathColumn_ = -1;
    int rowPadding_ = 0;
    QSize cell_;
};

} // namespace widgets
