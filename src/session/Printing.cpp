#include "session/Printing.h"

#include "platform/Operator.h"
#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QDir>
#include <QFileInfo>

namespace session {

Printing::Printing(Session& session, const Texts& texts, platform::Operator& op, platform::Printers& printers)
    : session_(session), texts_(texts), operator_(op), printers_(printers)
{
}

bool Printing::print(const platform::PrintReport& report, const Ready& ready)
{
    chosen_.reset();
    report_ = &report;
    ready_ = ready;
    operator_.showFormModal(QStringLiteral("frmPrinters"));
    report_ = nullptr;
    if (!chosen_ || (ready && !ready()))
        return false;
    const std::optional<platform::PrintOrder> order = this->order(report);
    if (!order)
        return false;
    const platform::BusyPointer busy(operator_);
    printers_.print(report, *order);
    return true;
}

std::vector<platform::PrinterInfo> Printing::printers() const
{
    std::vector<platform::PrinterInfo> printers = printers_.installed();
    printers.push_back({pdfName(), texts_.own("printers.file"), QStringLiteral("PDF")});
    return printers;
}

QString Printing::defaultPrinter() const
{
    const QString standard = printers_.defaultPrinter();
    return standard.isEmpty() ? pdfName() : standard;
}

void Printing::choose(const QString& printer, int copies)
{
    chosen_ = platform::PrintOrder{printer, copies};
}

void Printing::preview(const QString& printer)
{
    if (!report_ || (ready_ && !ready_()))
        return;
    try {
        printers_.preview(*report_, {printer});
    } catch (const platform::RuntimeError& error) {
        if (error.number != platform::errors::kCancelled)
            throw;
        tellCancelled(session_, texts_, operator_);
    }
}

QString Printing::pdfName() const
{
    return texts_.own("printers.pdf");
}

// The choice with the name of the file where it is one; none when that name was not given.
std::optional<platform::PrintOrder> Printing::order(const platform::PrintReport& report) const
{
    platform::PrintOrder order = *chosen_;
    if (order.printer != pdfName())
        return order;
    try {
        order.file = askFile(report.title);
    } catch (const platform::RuntimeError& error) {
        if (error.number != platform::errors::kCancelled)
            throw;
        tellCancelled(session_, texts_, operator_);
        return std::nullopt;
    }
    session_.DirExport = QDir::toNativeSeparators(QFileInfo(order.file).path());
    return order;
}

QString Printing::askFile(const QString& title) const
{
    static const QString kForbidden = QStringLiteral("\\/:*?\"<>|");
    QString name = title;
    for (const QChar character : kForbidden)
        name.remove(character);
    return operator_
        .saveFile({texts_(rows::kSaveAs), QStringLiteral("PDF (*.pdf)|*.pdf"), name + ".pdf",
                   exportFolder(session_)})
        .name;
}

QString exportFolder(const Session& session)
{
    return Exist_Path(session.DirExport) ? session.DirExport : session.appFile(QStringLiteral("Log"));
}

void tellCancelled(const Session& session, const Texts& texts, platform::Operator& op)
{
    op.messageBox(texts(rows::kCancelled), platform::Buttons::Ok, platform::Icon::Exclamation,
                  session.AppTitle);
}

} // namespace session
