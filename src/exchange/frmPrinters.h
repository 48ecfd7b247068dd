#pragma once

#include "exchange/PrinterChoice.h"
#include "widgets/Forward.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;
class QTreeView;

namespace exchange {

// Where every report goes: the printers of the machine and the PDF file, how many copies, a look at the
// pages.
class frmPrinters : public QDialog
{
    Q_OBJECT

public:
    explicit frmPrinters(const PrinterChoice::Surroundings& surroundings);

protected:
    void changeEvent(QEvent* event) override;

private:
    widgets::FieldEdit* makeCopies();
    void layOut();
    void layOutViews();
    void listen();
    void showChoice();
    void showDetails(bool details);
    void clickColumn(int column);
    void print();
    void relabel();

    PrinterChoice choice_;
    PrinterChoice::Surroundings with_;
    QString copiesAtEntry_;
    QTreeView* lvwPrinters_;
    widgets::SortHeader* header_;
    QToolButton* cmdView_;
    QMenu* mnuView_;
    QLabel *lblPrt_, *lblCopie_;
    QLineEdit *txtPrt_, *txtPrtDft_;
    widgets::FieldEdit* txtCopie_;
    QPushButton *cmdPreview_, *cmdPrint_, *cmdClose_;
};

} // namespace exchange
