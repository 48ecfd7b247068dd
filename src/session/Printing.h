#pragma once

#include "platform/Forward.h"
#include "platform/Printer.h"

#include <functional>
#include <optional>

namespace session {

struct Session;
class Texts;

// The way of every report to paper: the window frmPrinters, where the operator chooses a printer and may look
// at the pages, then the printing.
class Printing
{
public:
    Printing(Session& session, const Texts& texts, platform::Operator& op, platform::Printers& printers);

    // Asked before pages are made; it tells the operator itself when there is nothing to print.
    using Ready = std::function<bool()>;

    // Shows frmPrinters and prints on what was chosen there; true when it has printed. Closing the window is
    // no answer to tell about, a cancelled file name is. A failure comes out as RuntimeError, also the cancel
    // (32755) of a report that was broken off.
    bool print(const platform::PrintReport& report, const Ready& ready = {});

    // What frmPrinters shows: the system's printers, and behind them the PDF file.
    std::vector<platform::PrinterInfo> printers() const;
    // The PDF file where the system has no default.
    QString defaultPrinter() const;
    // What frmPrinters answers with.
    void choose(const QString& printer, int copies);
    void preview(const QString& printer);

private:
    QString pdfName() const;
    std::optional<platform::PrintOrder> order(const platform::PrintReport& report) const;
    QString askFile(const QString& title) const;

    Session& session_;
    const Texts& texts_;
    platform::Operator& operator_;
    platform::Printers& printers_;
    const platform::PrintReport* report_ = nullptr; // while frmPrinters stands
    Ready ready_;
    std::optional<platform::PrintOrder> chosen_;
};

// The folder where exports begin, which is the one told to the operator last.
QString exportFolder(const Session& session);
// The operator cancelled: text 502.
void tellCancelled(const Session& session, const Texts& texts, platform::Operator& op);

} // namespace session
