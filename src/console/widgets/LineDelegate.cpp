#include "console/widgets/LineDelegate.h"

#include "console/LogModel.h"
#include "events/EventLog.h"

namespace console {

void LineDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const int type = index.data(LogModel::TypeRole).toInt();
    if (type < events::kWarning)
        return;
    option->font.setBold(true);
    if (option->state & QStyle::State_Selected)
        return;
    option->backgroundBrush = type == events::kError ? QColor(0xfb, 0xe0, 0xdd) : QColor(0xff, 0xf1, 0xd2);
    option->palette.setColor(QPalette::Text,
                             type == events::kError ? QColor(0x9b, 0x1c, 0x12) : QColor(0x7a, 0x4b, 0x00));
}

} // namespace console
