#include "exchange/PrinterChoice.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QStringList>
#include <algorithm>

namespace exchange {

using platform::guarded;

namespace {

constexpr int kColumns = 3;

const QString& field(const platform::PrinterInfo& printer, int column)
{
    switch (column) {
    case 0:
        return printer.name;
    case 1:
        return printer.port;
    default:
        return printer.device;
    }
}

int placeOf(const QString& name, const std::vector<platform::PrinterInfo>& printers)
{
    const auto named = [&name](const platform::PrinterInfo& printer) { return printer.name == name; };
    const auto found = std::find_if(printers.begin(), printers.end(), named);
    return found == printers.end() ? PrinterChoice::kNone : int(found - printers.begin());
}

} // namespace

PrinterChoice::PrinterChoice(const Surroundings& surroundings) : with_(surroundings) {}

void PrinterChoice::Load()
{
    guarded("frmPrinters.Load", [&] {
        beginResetModel();
        printers_ = with_.printing.printers();
        endResetModel();
        txtPrtDft_ = with_.printing.defaultPrinter();
        txtPrt_ = txtPrtDft_;
        txtCopie_ = QStringLiteral("1");
        sortColumn_ = -1;
    });
}

int PrinterChoice::IndexPrinter(const QString& name) const
{
    return guarded("frmPrinters/IndexPrinter", [&] { return placeOf(name, with_.printing.printers()); });
}

int PrinterChoice::rowOf(const QString& name) const
{
    return placeOf(name, printers_);
}

void PrinterChoice::ColumnClick(int column)
{
    ascending_ = column == sortColumn_ ? !ascending_ : true;
    sortColumn_ = column;
    emit layoutAboutToBeChanged();
    sort();
    emit layoutChanged();
}

void PrinterChoice::sort()
{
    std::stable_sort(printers_.begin(), printers_.end(), [this](const auto& one, const auto& other) {
        const int order = field(one, sortColumn_).compare(field(other, sortColumn_), Qt::CaseInsensitive);
        return ascending_ ? order < 0 : order > 0;
    });
}

void PrinterChoice::choose(int row)
{
    if (row >= 0 && row < rowCount())
        txtPrt_ = printers_[std::size_t(row)].name;
}

void PrinterChoice::step(int steps)
{
    txtCopie_ = QString::number(std::clamp(txtCopie_.toInt() + steps, kFewestCopies, kMostCopies));
}

bool PrinterChoice::Print()
{
    return guarded("frmPrinters.cmdPrint_Click", [&] {
        bool whole = false;
        const int copies = txtCopie_.trimmed().toInt(&whole);
        if (!whole || copies < kFewestCopies || copies > kMostCopies)
            return refuse(with_.texts(518));
        if (IndexPrinter(txtPrt_) == kNone)
            return refuse(with_.texts.own("printer.gone").arg(txtPrt_));
        with_.printing.choose(txtPrt_, copies);
        return true;
    });
}

bool PrinterChoice::refuse(const QString& words)
{
    with_.op.messageBox(words, platform::Buttons::Ok, platform::Icon::Exclamation, with_.session.AppTitle);
    return false;
}

void PrinterChoice::preview()
{
    guarded("frmPrinters.cmdPreview_Click", [&] { with_.printing.preview(txtPrt_); });
}

int PrinterChoice::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(printers_.size());
}

int PrinterChoice::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant PrinterChoice::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return field(printers_[std::size_t(index.row())], index.column());
}

QVariant PrinterChoice::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList kTitles{"Nome", "Porta", "Device"};
    return kTitles.value(section);
}

} // namespace exchange
