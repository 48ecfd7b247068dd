#include "dialogs/frmZoom.h"

#include "dialogs/Zoom.h"
#include "platform/widgets/Icons.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"
#include "widgets/ImageDelegate.h"
#include "widgets/SortHeader.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace dialogs {

namespace {

constexpr QSize kSmallest(420, 320);
constexpr QSize kLargest(860, 560);
constexpr int kArrowRoom = 24;

} // namespace

frmZoom::frmZoom(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                 Zoom& zoom)
    : texts_(texts), zoom_(zoom), lvwZoom_(new QTreeView(this)), header_(new widgets::SortHeader),
      staZoom_(new QStatusBar(this)), rows_(new QLabel), prgZoom_(new QProgressBar),
      mnuPopup_(new QMenu(this))
{
    setWindowTitle(' ' + zoom.ZoomSet.Caption);
    layOut();
    makePopup();
    listen();
    widgets::Set_Language(*this, session, texts, op);
    zoom_.Load();
    fitWindow();
}

void frmZoom::layOut()
{
    lvwZoom_->setObjectName("lvwZoom");
    lvwZoom_->setModel(&zoom_.list());
    lvwZoom_->setHeader(header_);
    header_->setSectionsClickable(true);
    header_->setStretchLastSection(false);
    lvwZoom_->setRootIsDecorated(false);
    lvwZoom_->setItemsExpandable(false);
    lvwZoom_->setUniformRowHeights(true);
    lvwZoom_->setAllColumnsShowFocus(true);
    lvwZoom_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvwZoom_->setFrameShape(QFrame::NoFrame);
    auto* delegate = new widgets::ImageDelegate(lvwZoom_);
    delegate->setRowPadding(2);
    lvwZoom_->setItemDelegate(delegate);
    lvwZoom_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvwZoom_->installEventFilter(this);

    staZoom_->setObjectName("staZoom");
    rows_->setObjectName("Rows");
    prgZoom_->setObjectName("prgZoom");
    prgZoom_->setTextVisible(false);
    prgZoom_->setFixedSize(140, 8);
    staZoom_->addWidget(rows_, 1);
    staZoom_->addPermanentWidget(prgZoom_);
    prgZoom_->hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(lvwZoom_, 1);
    cmdOK_ = widgets::tagged(new QPushButton("-", this), "cmdOK", "13");
    auto* cmdCancel = widgets::tagged(new QPushButton("-", this), "cmdCancel", "14");
    for (QPushButton* button : {cmdOK_, cmdCancel}) {
        button->setAutoDefault(false);
    }
    staZoom_->setSizeGripEnabled(false);
    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(0, 4, 8, 6);
    bottom->setSpacing(6);
    bottom->addWidget(staZoom_, 1);
    bottom->addWidget(cmdOK_);
    bottom->addWidget(cmdCancel);
    connect(cmdOK_, &QPushButton::clicked, this, [this] { pick(lvwZoom_->currentIndex()); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    layout->addLayout(bottom);
    lvwZoom_->setFocus();
}

void frmZoom::makePopup()
{
    mnuPopup_->setObjectName("mnuPopup");
    mnuFind_ = mnuPopup_->addAction(platform::icon("find"), QString());
    mnuFind_->setObjectName("mnuFind");
    mnuFind_->setShortcut(Qt::CTRL | Qt::Key_F);
    mnuRefresh_ = widgets::tagged(mnuPopup_->addAction(platform::icon("refresh"), "-"), "mnuRefresh", "228");
    mnuRefresh_->setShortcut(Qt::Key_F5);
    addActions(mnuPopup_->actions()); // their keys work while the popup is closed
}

void frmZoom::listen()
{
    connect(lvwZoom_, &QTreeView::doubleClicked, this, &frmZoom::pick);
    connect(lvwZoom_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { preselected_ = false; });
    connect(header_, &QHeaderView::sectionClicked, &zoom_.list(), &ZoomModel::clickColumn);
    connect(&zoom_.list(), &QAbstractItemModel::layoutChanged, this,
            [this] { header_->setArrow(zoom_.list().sortColumn(), zoom_.list().sortAscending()); });
    connect(lvwZoom_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { mnuPopup_->popup(lvwZoom_->viewport()->mapToGlobal(place)); });
    connect(mnuFind_, &QAction::triggered, this, [this] { select(zoom_.Find(rowOfOperator())); });
    connect(mnuRefresh_, &QAction::triggered, &zoom_, &Zoom::Refresh);
    connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this,
            [this] { select(zoom_.FindAgain(rowOfOperator())); });
    // Ctrl and its number stand for a click on a column's head.
    for (int column = 0; column < 9; ++column) {
        const auto* key = new QShortcut(QKeyCombination(Qt::CTRL, Qt::Key(Qt::Key_1 + column)), this);
        connect(key, &QShortcut::activated, this, [this, column] {
            if (column < zoom_.list().columnCount())
                zoom_.list().clickColumn(column);
        });
    }
    connect(&zoom_, &Zoom::filled, this, &frmZoom::showFilled);
    connect(&zoom_, &Zoom::progress, this, [this](int percent) {
        prgZoom_->show();
        prgZoom_->setValue(percent);
        prgZoom_->repaint();
    });
}

bool frmZoom::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QDialog::eventFilter(watched, event);
}

bool frmZoom::keyPressed(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (selectedRow() >= 0)
            pick(lvwZoom_->currentIndex());
        return true;
    default:
        return false;
    }
}

void frmZoom::pick(const QModelIndex& index)
{
    if (zoom_.pick(index.row()))
        accept();
}

// The row that the list has selected by itself isn't passed over by a search.
int frmZoom::rowOfOperator() const
{
    return preselected_ ? -1 : selectedRow();
}

int frmZoom::selectedRow() const
{
    const QModelIndexList selected = lvwZoom_->selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void frmZoom::select(int row)
{
    const QModelIndex index = zoom_.list().index(row, 0);
    if (!index.isValid())
        return;
    preselected_ = false;
    lvwZoom_->setCurrentIndex(index);
    lvwZoom_->scrollTo(index);
}

void frmZoom::showFilled()
{
    prgZoom_->hide();
    rows_->setText(zoom_.rowsText());
    header_->setArrow(-1, true);
    shareWidth();
    select(0);
    preselected_ = true;
    cmdOK_->setEnabled(zoom_.list().rowCount() > 0);
}

// Each column is as wide as what stands in it. Returns the width of all of them.
int frmZoom::fitColumns()
{
    int needed = 0;
    for (int column = 0; column < header_->count(); ++column) {
        lvwZoom_->resizeColumnToContents(column);
        header_->resizeSection(column, header_->sectionSize(column) + kArrowRoom);
        needed += header_->sectionSize(column);
    }
    return needed;
}

// What the columns leave of the window's width is theirs in equal parts.
void frmZoom::shareWidth()
{
    const int left = lvwZoom_->viewport()->width() - fitColumns();
    for (int column = 0; column < header_->count() && left > 0; ++column)
        header_->resizeSection(column, header_->sectionSize(column) + left / header_->count());
}

void frmZoom::fitWindow()
{
    const int width = fitColumns() + lvwZoom_->verticalScrollBar()->sizeHint().width();
    resize(QSize(width, kSmallest.height()).expandedTo(kSmallest).boundedTo(kLargest));
}

void frmZoom::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    shareWidth();
}

void frmZoom::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        mnuFind_->setText(texts_.own("zoom.find"));
}

} // namespace dialogs
