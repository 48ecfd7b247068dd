#include "platform/widgets/InsideScreen.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace platform {

namespace {

constexpr int kGap = 8;

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

namespace {

// Where there is no room for all of it: it takes what is free above or below, whichever is more.
void shrinkAside(QWidget& window, const QRect& place, const QRect& room)
{
    const QRect now = window.frameGeometry();
    const int above = place.top() - kGap - room.top();
    const int below = room.bottom() - place.bottom() - kGap;
    const int height = std::max(above, below) - (now.height() - window.height());
    if (height < window.minimumSizeHint().expandedTo(window.minimumSize()).height())
        return;
    window.resize(window.width(), height);
    window.move(within(now.x(), now.width(), room.left(), room.right() + 1),
                below >= above ? place.bottom() + kGap : room.top());
}

} // namespace

void moveAside(QWidget& window, const QRect& place)
{
    const QRect now = window.frameGeometry();
    if (!now.intersects(place) || !window.screen())
        return;
    const QRect room = window.screen()->availableGeometry();
    std::vector<QPoint> others{{now.x(), place.bottom() + kGap},
                               {now.x(), place.top() - kGap - now.height()},
                               {place.right() + kGap, now.y()},
                               {place.left() - kGap - now.width(), now.y()}};
    std::sort(others.begin(), others.end(), [&](const QPoint& one, const QPoint& other) {
        return (one - now.topLeft()).manhattanLength() < (other - now.topLeft()).manhattanLength();
    });
    for (const QPoint& other : others) {
        if (room.contains(QRect(other, now.size()))) {
            window.move(other);
            return;
        }
    }
    shrinkAside(window, place, room);
}

bool InsideScreen::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && window->isWindow())
        keepInside(*window);
    return false;
}

} // namespace platform
