#include "platform/widgets/InsideScreen.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace platform {

namespace {

// The desktop's frame; before it has drawn one, a guess.
QMargins frameOf(const QWidget& window)
{
    const QRect inner = window.geometry();
    const QRect outer = window.frameGeometry();
    if (outer != inner)
        return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                outer.bottom() - inner.bottom()};
    return {2, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), 2, 2};
}

int within(int position, int length, int from, int to)
{
    return std::max(from, std::min(position, to - length));
}

} // namespace

void keepInside(QWidget& window)
{
    if (!window.screen() || window.isMaximized() || window.isFullScreen())
        return;
    const QMargins frame = frameOf(window);
    const QRect room = window.screen()->availableGeometry().marginsRemoved(frame);
    const QSize size = window.size().boundedTo(room.size());
    if (size != window.size())
        window.resize(size);
    const QPoint inside(within(window.geometry().x(), window.width(), room.left(), room.right() + 1),
                        within(window.geometry().y(), window.height(), room.top(), room.bottom() + 1));
    if (inside != window.geometry().topLeft())
        window.move(inside - QPoint(frame.left(), frame.top()));
}

void moveAside(QWidget& window, const QRect& place)
{
    const QRect now = window.frameGeometry();
    if (!now.intersects(place) || !window.screen())
        return;
    const QRect room = window.screen()->availableGeometry();
    std::vector<QPoint> others{{now.x(), place.bottom() + 8},
                               {now.x(), place.top() - 8 - now.height()},
                               {place.right() + 8, now.y()},
                               {place.left() - 8 - now.width(), now.y()}};
    std::sort(others.begin(), others.end(), [&](const QPoint& one, const QPoint& other) {
        return (one - now.topLeft()).manhattanLength() < (other - now.topLeft()).manhattanLength();
    });
    for (const QPoint& other : others) {
        if (room.contains(QRect(other, now.size()))) {
            window.move(other);
            return;
        }
    }
}

bool InsideScreen::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && window->isWindow())
        keepInside(*window);
    return false;
}

} // namespace platform
