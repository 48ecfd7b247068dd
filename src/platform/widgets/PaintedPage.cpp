#include "platform/widgets/PaintedPage.h"

#include "platform/Words.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>

namespace platform {

namespace {

constexpr double kPointsInInch = 72;

} // namespace

PaintedPage::PaintedPage(QPagedPaintDevice& device) : device_(device)
{
    if (!painter_.begin(&device))
        failInWords(errors::kDeviceIo, "printer.refuses");
    font_.setStyleHint(QFont::TypeWriter);
    font_.setFixedPitch(true);
    font_.setKerning(false);
}

void PaintedPage::setFont(const QString& family)
{
    font_.setFamily(family);
    painter_.setFont(font_);
}

void PaintedPage::setFontSize(int points)
{
    font_ = sized(points);
    painter_.setFont(font_);
}

int PaintedPage::columns() const
{
    return int(device_.width() / QFontMetricsF(font_, &device_).horizontalAdvance('0'));
}

double PaintedPage::lineHeight(int points) const
{
    return this->points(QFontMetricsF(sized(points), &device_).lineSpacing());
}

double PaintedPage::heightLeft() const
{
    return points(device_.height() - top_);
}

void PaintedPage::printLine(const QString& line)
{
    const QFontMetricsF metrics(font_, &device_);
    painter_.drawText(QPointF(0, top_ + metrics.ascent()), line);
    top_ += metrics.lineSpacing();
}

void PaintedPage::newPage()
{
    if (!device_.newPage())
        failInWords(errors::kDeviceIo, "printer.nextpage");
    top_ = 0;
}

void PaintedPage::end()
{
    if (!painter_.end())
        failInWords(errors::kDeviceIo, "printer.lastpage");
}

QFont PaintedPage::sized(int points) const
{
    QFont font = font_;
    font.setPointSize(points);
    return font;
}

double PaintedPage::points(double units) const
{
    return units * kPointsInInch / device_.logicalDpiY();
}

} // namespace platform
