#include "console/widgets/LineDelegate.h"

#include "console/LogModel.h"
#include "events/EventLog.h"
#include "platform/widgets/Icons.h"
#include "widgets/ImageDelegate.h"

namespace console {

namespace {

struct Colours
{
    const char *errorGround, *errorInk, *warningGround, *warningInk;
};
constexpr Colours kLight{"#FBE0DD", "#9B1C12", "#FFF1D2", "#7A4B00"};
constexpr Colours kDark{"#4A2225", "#FFC2C2", "#43361C", "#FFDDA0"};

} // namespace

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 6);
}

void LineDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const int type = index.data(LogModel::TypeRole).toInt();
    if (type < events::kWarning)
        return;
    const bool error = type == events::kError;
    option->font.setBold(true);
    if (index.column() == 1) {
        option->icon = widgets::inOwnColours(platform::icon(error ? "log-error" : "log-warning"));
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
    if (option->state & QStyle::State_Selected)
        return;
    const Colours& colours = option->palette.base().color().lightness() < 128 ? kDark : kLight;
    option->backgroundBrush = QColor(error ? colours.errorGround : colours.warningGround);
    option->palette.setColor(QPalette::Text, QColor(error ? colours.errorInk : colours.warningInk));
}

} // namespace console
