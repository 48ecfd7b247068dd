#include "database/widgets/CopyAnimation.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace database {

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 76;
constexpr int kSheets = 3;
constexpr int kFlight = 1500; // milliseconds of a sheet
constexpr int kPicture = 30;  // milliseconds that a picture stands at least
const QSizeF kStore(46, 46);
const QSizeF kSheet(16, 20);

// A store of data, drawn as everybody draws one.
void drawStore(QPainter& painter, const QPointF& centre)
{
    const QRectF body(centre.x() - kStore.width() / 2, centre.y() - kStore.height() / 2, kStore.width(),
                      kStore.height());
    const qreal lid = kStore.height() / 4;
    QPainterPath shape;
    shape.moveTo(body.left(), body.top() + lid / 2);
    shape.lineTo(body.left(), body.bottom() - lid / 2);
    shape.arcTo(QRectF(body.left(), body.bottom() - lid, body.width(), lid), 180, 180);
    shape.lineTo(body.right(), body.top() + lid / 2);
    shape.arcTo(QRectF(body.left(), body.top(), body.width(), lid), 0, 180);
    painter.drawPath(shape);
    for (int ring = 0; ring < 3; ++ring) {
        const QRectF edge(body.left(), body.top() + ring * (body.height() - lid) / 3, body.width(), lid);
        painter.drawArc(edge, 180 * 16, 180 * 16);
    }
}

void drawSheet(QPainter& painter, const QPointF& centre)
{
    const QRectF sheet(centre.x() - kSheet.width() / 2, centre.y() - kSheet.height() / 2, kSheet.width(),
                       kSheet.height());
    painter.drawRoundedRect(sheet, 2, 2);
    for (int line = 1; line <= 3; ++line) {
        const qreal y = sheet.top() + line * sheet.height() / 4;
        painter.drawLine(QPointF(sheet.left() + 4, y), QPointF(sheet.right() - 4, y));
    }
}

} // namespace

CopyAnimation::CopyAnimation(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CopyAnimation::setRunning(bool running)
{
    if (running)
        clock_.start();
    else
        clock_.invalidate();
    repaint();
}

void CopyAnimation::advance()
{
    if (isRunning() && clock_.elapsed() - painted_ >= kPicture)
        repaint();
}

QSize CopyAnimation::sizeHint() const
{
    return {kWidth, kHeight};
}

void CopyAnimation::paintEvent(QPaintEvent*)
{
    painted_ = isRunning() ? clock_.elapsed() : 0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal ground = height() - kStore.height() / 2 - 4;
    const QPointF from(width() / 2.0 - 100, ground), to(width() / 2.0 + 100, ground);
    painter.setPen(QPen(palette().highlight(), 1.6));
    painter.setBrush(palette().base());
    for (int sheet = 0; isRunning() && sheet < kSheets; ++sheet) {
        const qint64 offset = qint64(sheet) * kFlight / kSheets;
        const qreal way = qreal((clock_.elapsed() + offset) % kFlight) / kFlight;
        const qreal height = std::sin(way * std::numbers::pi) * (ground - kSheet.height() / 2 - 6);
        drawSheet(painter, from + way * (to - from) - QPointF(0, height));
    }
    drawStore(painter, from);
    drawStore(painter, to);
}

} // namespace database
