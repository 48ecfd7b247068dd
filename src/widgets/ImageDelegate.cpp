#include "widgets/ImageDelegate.h"

#include "platform/widgets/Icons.h"

#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>

namespace widgets {

namespace {

constexpr double kPale = 0.4;
constexpr int kAbove = 6;
constexpr double kBadge = 0.55; // of the picture's side

// The signs by their bit, each in a corner of its own.
struct Badge
{
    int bit;
    const char* icon;
    Qt::Alignment corner;
};
const Badge kBadges[] = {{1, "badge-changed", Qt::AlignRight | Qt::AlignBottom},
                         {2, "badge-unconfirmed", Qt::AlignRight | Qt::AlignTop},
                         {4, "badge-lock", Qt::AlignLeft | Qt::AlignBottom}};

// A picture with its signs, in its own colours whether it is selected or not: a colour may be what it says.
class MarkedPicture : public QIconEngine
{
public:
    MarkedPicture(const QIcon& picture, int marks) : picture_(picture), marks_(marks) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QIcon::Mode shown = mode == QIcon::Disabled ? QIcon::Disabled : QIcon::Normal;
        picture_.paint(painter, rect, Qt::AlignCenter, shown);
        const QSize size = rect.size() * kBadge;
        for (const Badge& badge : kBadges) {
            if (marks_ & badge.bit)
                platform::icon(badge.icon)
                    .paint(painter, QStyle::alignedRect(Qt::LeftToRight, badge.corner, size, rect),
                           Qt::AlignCenter, shown);
        }
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }
    QIconEngine* clone() const override { return new MarkedPicture(picture_, marks_); }

private:
    QIcon picture_;
    int marks_;
};

QIcon pictureOf(int image, int marks)
{
    static QHash<std::pair<int, int>, QIcon> known;
    const auto found = known.constFind({image, marks});
    if (found != known.constEnd())
        return *found;
    const QIcon picture = platform::imageOf(image);
    return known[{image, marks}] = picture.isNull() ? QIcon() : QIcon(new MarkedPicture(picture, marks));
}

} // namespace

QIcon inOwnColours(const QIcon& picture)
{
    return QIcon(new MarkedPicture(picture, 0));
}

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
    if (index.column() == pathColumn_)
        option->textElideMode = Qt::ElideLeft;
    if (index.column() != 0 || !imageRole_)
        return;
    option->icon = pictureOf(index.data(*imageRole_).toInt(), markRole_ ? index.data(*markRole_).toInt() : 0);
    if (!option->icon.isNull())
        option->features |= QStyleOptionViewItem::HasDecoration;
    // The text stands right below a large picture, and neither touches what is above.
    if (option->decorationPosition == QStyleOptionViewItem::Top) {
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
        option->rect.setTop(option->rect.top() + kAbove);
    }
    if (valueRole_)
        addValue(option, index.data(*valueRole_).toString());
}

// A long text gives way to the value.
void ImageDelegate::addValue(QStyleOptionViewItem* option, const QString& value) const
{
    if (value.isEmpty())
        return;
    const QFontMetrics& metrics = option->fontMetrics;
    if (valuePlace_ == Below) {
        const int twoLines = 2 * cell_.width() - 6 * metrics.averageCharWidth();
        option->text =
            metrics.elidedText(option->text, Qt::ElideRight, twoLines) + QChar::LineSeparator + value;
        return;
    }
    const QString behind = QStringLiteral("   ") + value;
    const int room = cell_.width() - option->decorationSize.width() - 16 - metrics.horizontalAdvance(behind);
    option->text = metrics.elidedText(option->text, Qt::ElideRight, room) + behind;
}

} // namespace widgets
