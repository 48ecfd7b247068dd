#pragma once

#include <QAbstractItemView>
#include <QColor>
#include <QImage>
#include <QPixmap>

namespace gui {

// Looks at what is drawn, as an eye does.

inline bool isNear(const QColor& one, const QColor& other)
{
    return qAbs(one.red() - other.red()) + qAbs(one.green() - other.green()) +
               qAbs(one.blue() - other.blue()) <
           60;
}
// The points of about that colour.
inline int inkOf(const QImage& shown, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x)
            count += isNear(shown.pixelColor(x, y), colour);
    }
    return count;
}
// The first column, from the left, in which something stands out against the ground of the lower left corner;
// -1 when nothing does.
inline int leftmostInk(const QImage& shown)
{
    const int ground = qGray(shown.pixel(0, shown.height() - 3));
    for (int x = 0; x < shown.width(); ++x) {
        for (int y = 2; y < shown.height() - 3; ++y) {
            if (qAbs(qGray(shown.pixel(x, y)) - ground) > 60)
                return x;
        }
    }
    return -1;
}
inline QImage cellOf(QAbstractItemView& view, const QModelIndex& index)
{
    view.scrollTo(index);
    return view.viewport()->grab(view.visualRect(index)).toImage();
}
// How far two colours are apart, as the accessibility guidelines count it.
inline double contrastOf(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace gui
