#include "widgets/SortHeader.h"

#include "platform/widgets/Icons.h"

#include <QPainter>

namespace widgets {

SortHeader::SortHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setHighlightSections(false);
    setStretchLastSection(true);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setMinimumSectionSize(60);
}

void SortHeader::setArrow(int column, bool ascending)
{
    column_ = column;
    ascending_ = ascending;
    viewport()->update();
}

void SortHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    QHeaderView::paintSection(painter, rect, logicalIndex);
    if (logicalIndex != column_)
        return;
    constexpr int kSize = 12;
    const QRect place(rect.right() - kSize - 6, rect.center().y() - kSize / 2, kSize, kSize);
    platform::icon(ascending_ ? "sort-up" : "sort-down").paint(painter, place);
}

} // namespace widgets
