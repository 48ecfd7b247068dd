#include "widgets/ElidedLabel.h"

#include <QPainter>

namespace widgets {

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideLeft, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), int(Qt::AlignVCenter | Qt::AlignLeft), shownText());
}

} // namespace widgets
