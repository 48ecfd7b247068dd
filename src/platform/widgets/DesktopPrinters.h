#pragma once

#include "platform/Printer.h"

#include <functional>

class QPrinter;

namespace platform {

// The printers of the desktop, behind Qt's own doors.
class DesktopPrinters : public Printers
{
public:
    // A word of the current language by name: "preview.zoom.in".
    using Words = std::function<QString(const QString& key)>;

    explicit DesktopPrinters(Words words) : words_(std::move(words)) {}

    std::vector<PrinterInfo> installed() override;
    QString defaultPrinter() override;
    void print(const PrintReport& report, const PrintOrder& order) override;
    void preview(const PrintReport& report, const PrintOrder& order) override;

private:
    void printOnPaper(const PrintReport& report, const PrintOrder& order);
    void printToFile(const PrintReport& report, const QString& file);
    void prepare(QPrinter& printer, const PrintReport& report, const PrintOrder& order) const;
    void requirePrinter(const QString& name) const;

    Words words_;
};

} // namespace platform
