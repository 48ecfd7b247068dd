#include "platform/widgets/DesktopPrinters.h"

#include "platform/RuntimeError.h"
#include "platform/widgets/PaintedPage.h"
#include "platform/widgets/PreviewWindow.h"

#include <QDir>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

namespace platform {

namespace {

const QMarginsF kMargins(15, 10, 15, 10); // millimetres

void shape(QPagedPaintDevice& device, Orientation orientation)
{
    device.setPageOrientation(orientation == Orientation::Portrait ? QPageLayout::Portrait
                                                                   : QPageLayout::Landscape);
    device.setPageMargins(kMargins, QPageLayout::Millimeter);
}

[[noreturn]] void failWithFile(const QSaveFile& file, int number)
{
    fail(number, QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

} // namespace

std::vector<PrinterInfo> DesktopPrinters::installed()
{
    std::vector<PrinterInfo> printers;
    for (const QPrinterInfo& info : QPrinterInfo::availablePrinters())
        printers.push_back({info.printerName(), info.location(), info.makeAndModel()});
    return printers;
}

QString DesktopPrinters::defaultPrinter()
{
    return QPrinterInfo::defaultPrinterName();
}

void DesktopPrinters::print(const PrintReport& report, const PrintOrder& order)
{
    if (order.file.isEmpty())
        printOnPaper(report, order);
    else
        printToFile(report, order.file);
}

void DesktopPrinters::printOnPaper(const PrintReport& report, const PrintOrder& order)
{
    requirePrinter(order.printer);
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer, report, order);
    PaintedPage page(printer);
    try {
        report.write(page);
    } catch (...) {
        printer.abort();
        throw;
    }
    page.end();
    // The pages went out at the end: a queue that is not there any more has not taken them.
    requirePrinter(order.printer);
}

void DesktopPrinters::printToFile(const PrintReport& report, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        failWithFile(file, errors::kPermissionDenied);
    {
        QPdfWriter writer(&file);
        writer.setTitle(report.title);
        writer.setCreator(QCoreApplication::applicationName());
        writer.setPageSize(QPageSize(QPageSize::A4));
        shape(writer, report.orientation);
        PaintedPage page(writer);
        report.write(page);
        page.end();
    }
    // The commit looks at what was written, not at what its own flush couldn't write: a full disk shows here.
    if (!file.flush())
        failWithFile(file, errors::kDiskFull);
    if (!file.commit())
        failWithFile(file, errors::kDeviceIo);
}

void DesktopPrinters::preview(const PrintReport& report, const PrintOrder& order)
{
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer, report, order);
    PreviewWindow(printer, report, words_).exec();
}

void DesktopPrinters::prepare(QPrinter& printer, const PrintReport& report, const PrintOrder& order) const
{
    if (QPrinterInfo::printerInfo(order.printer).isNull()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
    } else {
        printer.setPrinterName(order.printer);
    }
    printer.setDocName(report.title);
    printer.setCreator(QCoreApplication::applicationName());
    printer.setCopyCount(order.copies);
    shape(printer, report.orientation);
}

void DesktopPrinters::requirePrinter(const QString& name) const
{
    if (QPrinterInfo::printerInfo(name).isNull())
        fail(errors::kDeviceIo, words_("printer.gone").arg(name));
}

} // namespace platform
