#pragma once

#include "platform/Forward.h"
#include "platform/Printer.h"
#include "session/Forward.h"

#include <QAbstractTableModel>
#include <QString>
#include <vector>

namespace exchange {

// What frmPrinters shows and decides: the list of printers with the columns name, port and device, the one
// that is chosen, the number of copies.
class PrinterChoice : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int kFewestCopies = 1;
    static constexpr int kMostCopies = 999;

    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        session::Printing& printing;
    };

    explicit PrinterChoice(const Surroundings& surroundings);

    // frmPrinters.Load: the system's printers, the default one chosen.
    void Load();
    static constexpr int kNone = -1;
    // Where a printer stands in the list shown, or kNone.
    int rowOf(const QString& name) const;
    // Where it stands in the system's list as it is now, or kNone.
    int IndexPrinter(const QString& name) const;
    // A click on a column sorts by it, a second one the other way round.
    void ColumnClick(int column);
    int sortColumn() const { return sortColumn_; }
    bool sortAscending() const { return ascending_; }

    const QString& txtPrtDft() const { return txtPrtDft_; }
    const QString& txtPrt() const { return txtPrt_; }
    const QString& txtCopie() const { return txtCopie_; }
    void setCopies(const QString& text) { txtCopie_ = text; }
    void choose(int row);
    // vsbCopie: so many more or fewer, within the range.
    void step(int steps);

    // cmdPrint: true when the choice holds and the window closes.
    bool Print();
    void preview();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool refuse(const QString& words);
    void sort();

    Surroundings with_;
    std::vector<platform::PrinterInfo> printers_;
    QString txtPrt_, txtPrtDft_;
    QString txtCopie_ = QStringLiteral("1");
    int sortColumn_ = -1;
    bool ascending_ = true;
};

} // namespace exchange
