#pragma once

#include <QIcon>
#include <QString>

namespace platform {

// Whether the icons stand on a dark ground; those that are fetched from then on are drawn for it.
void setDarkGround(bool dark);

// The icon of that name in the program's resources, with its drawing for 16 points where there is one.
QIcon icon(const QString& name);

// The pictures of the program's image list by number: nodes and items 1 to 7, status panels 25 to 28; none
// for another.
QIcon imageOf(int number);

// A drawing of the resources as a picture of that size in points, as sharp as the screen's ratio.
QPixmap picture(const QString& name, const QSize& points, double pixelRatio);

} // namespace platform
