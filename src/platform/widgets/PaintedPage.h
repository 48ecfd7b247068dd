#pragma once

#include "platform/Printer.h"

#include <QFont>
#include <QPainter>

class QPagedPaintDevice;

namespace platform {

// Paper, a PDF file or a preview: whatever Qt paints in pages.
class PaintedPage : public Printer
{
public:
    // Takes the device in the shape that it has. One that can't be painted on fails.
    explicit PaintedPage(QPagedPaintDevice& device);

    void setFont(const QString& family) override;
    void setFontSize(int points) override;
    int columns() const override;
    double lineHeight(int points) const override;
    double heightLeft() const override;
    void printLine(const QString& line) override;
    void newPage() override;
    // The last page is done; without it the device is left as it stands.
    void end();

private:
    QFont sized(int points) const;
    double points(double units) const;

    QPagedPaintDevice& device_;
    QPainter painter_;
    QFont font_;
    double top_ = 0; // in the device's units
};

} // namespace platform
