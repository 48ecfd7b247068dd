#include "exchange/frmPrinters.h"

#include "platform/widgets/Icons.h"
#include "session/Texts.h"
#include "widgets/FieldEdit.h"
#include "widgets/FormLanguage.h"
#include "widgets/ImageDelegate.h"
#include "widgets/SortHeader.h"
#include "widgets/SpinButtons.h"

#include <QActionGroup>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>

namespace exchange {

using widgets::tagged;

frmPrinters::frmPrinters(const PrinterChoice::Surroundings& surroundings)
    : choice_(surroundings), with_(surroundings), lvwPrinters_(new QTreeView(this)),
      header_(new widgets::SortHeader(lvwPrinters_)), cmdView_(new QToolButton(this)),
      mnuView_(new QMenu(this)), lblPrt_(new QLabel(this)),
      lblCopie_(tagged(new QLabel("Copie", this), "lblCopie", "162")), txtPrt_(new QLineEdit(this)),
      txtPrtDft_(new QLineEdit(this)), txtCopie_(makeCopies()), cmdPreview_(new QPushButton(this)),
      cmdPrint_(tagged(new QPushButton("Stampa", this), "cmdPrint", "161")), cmdClose_(new QPushButton(this))
{
    widgets::tagged(this, "frmPrinters", "161");
    setWindowIcon(platform::icon("print"));
    choice_.Load();
    layOut();
    listen();
    showChoice();
    lvwPrinters_->setFocus();
    widgets::Set_Language(*this, with_.session, with_.texts, with_.op);
}

widgets::FieldEdit* frmPrinters::makeCopies()
{
    widgets::FieldEdit::Verbs verbs;
    verbs.changed = [this](const QString& text) { choice_.setCopies(text); };
    verbs.entered = [this] { copiesAtEntry_ = choice_.txtCopie(); };
    verbs.restore = [this] {
        const bool changed = choice_.txtCopie() != copiesAtEntry_;
        choice_.setCopies(copiesAtEntry_);
        showChoice();
        return changed;
    };
    verbs.filter = [](const QString& typed) { return std::optional(typed); };
    auto* field = new widgets::FieldEdit(std::move(verbs), "txtCopie", this);
    return tagged(field, "txtCopie", "163");
}

void frmPrinters::layOut()
{
    lvwPrinters_->setObjectName("lvwPrinters");
    lvwPrinters_->setModel(&choice_);
    lvwPrinters_->setHeader(header_);
    lvwPrinters_->setRootIsDecorated(false);
    lvwPrinters_->setUniformRowHeights(true);
    lvwPrinters_->setAllColumnsShowFocus(true);
    lvwPrinters_->setTabKeyNavigation(false);
    auto* delegate = new widgets::ImageDelegate(lvwPrinters_);
    delegate->setRowPadding(2);
    lvwPrinters_->setItemDelegate(delegate);
    header_->setSectionsClickable(true);
    header_->resizeSection(0, 190);
    header_->resizeSection(1, 130);
    layOutViews();

    txtPrt_->setObjectName("txtPrt");
    txtPrt_->setReadOnly(true);
    txtPrt_->setFocusPolicy(Qt::NoFocus);
    txtPrtDft_->setObjectName("txtPrtDft");
    txtPrtDft_->hide();
    lblPrt_->setObjectName("lblPrt");
    lblPrt_->setBuddy(txtPrt_);
    lblCopie_->setBuddy(txtCopie_);
    txtCopie_->setFixedWidth(60);
    auto* vsbCopie = new widgets::SpinButtons("vsbCopie", this);
    vsbCopie->setFixedHeight(txtCopie_->sizeHint().height());
    connect(vsbCopie, &widgets::SpinButtons::stepped, this,
            [this](int steps) { emit txtCopie_->stepped(steps); });

    auto* copies = new QHBoxLayout;
    copies->setSpacing(2);
    copies->addWidget(txtCopie_);
    copies->addWidget(vsbCopie);
    copies->addStretch(1);
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(10);
    fields->setVerticalSpacing(8);
    fields->addWidget(lblPrt_, 0, 0);
    fields->addWidget(txtPrt_, 0, 1);
    fields->addWidget(cmdView_, 0, 2);
    fields->addWidget(lblCopie_, 1, 0);
    fields->addLayout(copies, 1, 1);
    fields->setColumnStretch(1, 1);

    cmdPreview_->setObjectName("cmdPreview");
    cmdClose_->setObjectName("cmdClose");
    cmdPrint_->setIcon(platform::icon("print"));
    cmdPrint_->setDefault(true);
    cmdPreview_->setAutoDefault(false);
    cmdClose_->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdPreview_);
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint_);
    buttons->addWidget(cmdClose_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(lvwPrinters_, 1);
    layout->addLayout(fields);
    layout->addSpacing(4);
    layout->addLayout(buttons);
    resize(500, 340);
    setTabOrder(lvwPrinters_, txtCopie_);
    setTabOrder(txtCopie_, cmdPreview_);
}

// The list with its columns or without, by the button and by the list's own menu.
void frmPrinters::layOutViews()
{
    auto* choices = new QActionGroup(this);
    QAction* list = tagged(mnuView_->addAction(QString()), "mnuViewList", "133");
    QAction* details = tagged(mnuView_->addAction(QString()), "mnuViewDetails", "134");
    for (QAction* view : {list, details}) {
        view->setCheckable(true);
        choices->addAction(view);
        lvwPrinters_->addAction(view);
    }
    details->setChecked(true);
    lvwPrinters_->setContextMenuPolicy(Qt::ActionsContextMenu);
    cmdView_->setObjectName("cmdView");
    cmdView_->setIcon(platform::icon("view"));
    cmdView_->setMenu(mnuView_);
    cmdView_->setPopupMode(QToolButton::InstantPopup);
    connect(details, &QAction::toggled, this, &frmPrinters::showDetails);
}

void frmPrinters::listen()
{
    connect(lvwPrinters_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) {
                choice_.choose(row.row());
                txtPrt_->setText(choice_.txtPrt());
            });
    connect(lvwPrinters_, &QTreeView::doubleClicked, this, &frmPrinters::print);
    connect(header_, &QHeaderView::sectionClicked, this, &frmPrinters::clickColumn);
    connect(txtCopie_, &widgets::FieldEdit::stepped, this, [this](int steps) {
        choice_.step(steps);
        showChoice();
    });
    connect(cmdPreview_, &QPushButton::clicked, this, [this] { choice_.preview(); });
    connect(cmdPrint_, &QPushButton::clicked, this, &frmPrinters::print);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPrinters::showChoice()
{
    lvwPrinters_->setCurrentIndex(choice_.index(choice_.rowOf(choice_.txtPrt()), 0));
    txtPrt_->setText(choice_.txtPrt());
    txtPrtDft_->setText(choice_.txtPrtDft());
    txtCopie_->showText(choice_.txtCopie(), 0);
}

void frmPrinters::showDetails(bool details)
{
    header_->setVisible(details);
    for (int column = 1; column < choice_.columnCount(); ++column)
        lvwPrinters_->setColumnHidden(column, !details);
}

void frmPrinters::clickColumn(int column)
{
    choice_.ColumnClick(column);
    header_->setArrow(column, choice_.sortAscending());
    showChoice();
}

void frmPrinters::print()
{
    if (choice_.Print()) {
        accept();
        return;
    }
    txtCopie_->setFocus();
    txtCopie_->selectAll();
}

void frmPrinters::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

void frmPrinters::relabel()
{
    lblPrt_->setText(with_.texts.own("printers.name"));
    cmdView_->setToolTip(with_.texts.own("printers.view"));
    cmdView_->setAccessibleName(with_.texts.own("printers.view"));
    cmdPreview_->setText(with_.texts.own("printers.preview"));
    cmdClose_->setText(with_.texts.own("find.close"));
}

} // namespace exchange
