#include "platform/RecordingPrinters.h"

#include "platform/RuntimeError.h"

#include <algorithm>

namespace platform {

void RecordingPrinter::printLine(const QString& line)
{
    pages.back() << line;
    sizes.back().push_back(size_);
    used_ += lineHeight(size_);
}

void RecordingPrinter::newPage()
{
    pages.push_back({});
    sizes.push_back({});
    used_ = 0;
}

void RecordingPrinters::print(const PrintReport& report, const PrintOrder& order)
{
    const auto named = [&order](const PrinterInfo& printer) { return printer.name == order.printer; };
    if (order.file.isEmpty() && std::none_of(printers.begin(), printers.end(), named))
        fail(errors::kDeviceIo, QStringLiteral("The printer '%1' is not there.").arg(order.printer));
    jobs.push_back(write(report, order));
}

void RecordingPrinters::preview(const PrintReport& report, const PrintOrder& order)
{
    previews.push_back(write(report, order));
}

RecordingPrinters::Job RecordingPrinters::write(const PrintReport& report, const PrintOrder& order)
{
    RecordingPrinter paper =
        report.orientation == Orientation::Portrait ? RecordingPrinter() : RecordingPrinter(757, 538);
    report.write(paper);
    return {report.title, report.orientation, order, paper.font, paper.pages, paper.sizes};
}

} // namespace platform
