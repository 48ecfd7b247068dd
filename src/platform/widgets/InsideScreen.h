#pragma once

#include <QObject>

class QRect;
class QWidget;

namespace platform {

// Makes a window no larger than its screen, and moves it inside. The desktop's frame around it counts.
void keepInside(QWidget& window);

// Moves a window off a place of the screen, as little as may be; where there is no room it stays.
void moveAside(QWidget& window, const QRect& place);

// Keeps the windows that it filters inside their screens, whenever one of them comes up.
class InsideScreen : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace platform
