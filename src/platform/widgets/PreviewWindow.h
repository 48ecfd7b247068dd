#pragma once

#include "platform/Printer.h"

#include <exception>
#include <functional>

class QPrintPreviewDialog;
class QPrinter;

namespace platform {

// Qt's print preview in the program's language. It shows; printing stays with the window that called it up,
// and the paper is the printer's.
class PreviewWindow
{
public:
    using Words = std::function<QString(const QString& key)>;

    // More pages than this are not laid out: each one is kept in memory as a picture.
    static constexpr int kMostPages = 200;

    PreviewWindow(QPrinter& printer, const PrintReport& report, Words words);

    // Stands until the operator closes it. A failure of the report closes it and comes out of here.
    void exec();

private:
    void paint(QPrintPreviewDialog& dialog, QPrinter& printer);

    QPrinter& printer_;
    const PrintReport& report_;
    Words words_;
    std::exception_ptr failure_;
};

} // namespace platform
