#pragma once

class QRect;
class QWidget;

namespace platform {

// Makes a window no larger than its screen, and moves it inside. The desktop's frame around it counts.
void keepInside(QWidget& window);

// Moves a window off a place of the screen, as little as may be; where there is no room it stays.
void moveAside(QWidget& window, const QRect& place);

} // namespace platform
