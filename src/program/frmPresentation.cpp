#include "program/frmPresentation.h"

#include "platform/widgets/Icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace program {

namespace {

constexpr QSize kSize(560, 320);

} // namespace

frmPresentation::frmPresentation() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setFixedSize(kSize);
    picture_ = platform::picture("splash", kSize, devicePixelRatioF());
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    move(screen.center() - rect().center());
}

void frmPresentation::paintEvent(QPaintEvent*)
{
    QPainter(this).drawPixmap(0, 0, picture_);
}

} // namespace program
