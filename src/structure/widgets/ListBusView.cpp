#include "structure/widgets/ListBusView.h"

#include "structure/ListModel.h"
#include "structure/widgets/OneSelected.h"
#include "widgets/ImageDelegate.h"
#include "widgets/SortHeader.h"

#include <QContextMenuEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QScopedValueRollback>
#include <QTreeView>

namespace structure {

namespace {

enum View
{
    kLargeIcons,
    kSmallIcons,
    kList,
    kReport
};

} // namespace

ListBusView::ListBusView(ListModel& model, QWidget* parent)
    : QStackedWidget(parent), model_(model), report_(new OneSelected<QTreeView>),
      header_(new widgets::SortHeader), icons_(new OneSelected<QListView>), empty_(new QLabel(this))
{
    report_->setObjectName("lvwBusReport");
    icons_->setObjectName("lvwBusIcons");
    report_->setHeader(header_);
    report_->setRootIsDecorated(false);
    report_->setItemsExpandable(false);
    report_->setUniformRowHeights(true);
    report_->setAllColumnsShowFocus(true);
    report_->setIconSize({16, 16});
    icons_->setResizeMode(QListView::Adjust);
    icons_->setUniformItemSizes(true);
    icons_->setLayoutMode(QListView::Batched);
    icons_->setMovement(QListView::Static);
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(report_), static_cast<QAbstractItemView*>(icons_)})
        prepare(view);
    icons_->setSelectionModel(report_->selectionModel());
    connect(report_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) {
                if (keyGesture_ && !selecting_ && now.isValid())
                    emit itemPressed(model_.keyAt(now.row()));
            });

    // A tree that doesn't sort by itself makes its header deaf to clicks.
    header_->setSectionsClickable(true);
    header_->resizeSection(0, 280);
    header_->resizeSection(1, 160);
    connect(header_, &QHeaderView::sectionClicked, this, &ListBusView::columnClicked);
    connect(&model, &QAbstractItemModel::layoutChanged, this, &ListBusView::showArrow);
    connect(&model, &QAbstractItemModel::modelReset, this, &ListBusView::showArrow);
    connect(&model, &QAbstractItemModel::modelReset, this, &ListBusView::showEmptyText);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &ListBusView::showEmptyText);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &ListBusView::showEmptyText);

    empty_->setObjectName("lblEmpty");
    empty_->setTextFormat(Qt::PlainText);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
    setView(kLargeIcons);
}

void ListBusView::prepare(QAbstractItemView* view)
{
    view->setModel(&model_);
    view->setFrameShape(QFrame::NoFrame);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto* delegate = new widgets::ImageDelegate(view, ListModel::ImageRole);
    delegate->setPaleRole(ListModel::PaleRole);
    delegate->setMarkRole(ListModel::MarkRole);
    delegate->setRowPadding(2);
    view->setItemDelegate(delegate);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    addWidget(view);
    connect(view, &QAbstractItemView::pressed, this,
            [this](const QModelIndex& index) { emit itemPressed(model_.keyAt(index.row())); });
    connect(view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { emit itemOpened(model_.keyAt(index.row())); });
}

void ListBusView::setView(int view)
{
    const bool hadFocus = current() && current()->hasFocus();
    view_ = view;
    const bool large = view == kLargeIcons;
    icons_->setViewMode(large ? QListView::IconMode : QListView::ListMode);
    icons_->setFlow(view == kList ? QListView::TopToBottom : QListView::LeftToRight);
    icons_->setWrapping(true);
    icons_->setMovement(QListView::Static);
    icons_->setWordWrap(large);
    static_cast<widgets::ImageDelegate*>(icons_->itemDelegate())
        ->setValueRole(ListModel::ValueRole,
                       large ? widgets::ImageDelegate::Below : widgets::ImageDelegate::Behind);
    icons_->setIconSize(large ? QSize(32, 32) : QSize(16, 16));
    const QSize cell = large ? QSize(128, 92) : QSize(276, 24);
    static_cast<widgets::ImageDelegate*>(icons_->itemDelegate())->setCell(cell);
    icons_->setGridSize(cell + QSize(6, 4));
    icons_->setSpacing(0);
    setCurrentWidget(view == kReport ? static_cast<QWidget*>(report_) : icons_);
    setFocusProxy(current());
    if (hadFocus)
        current()->setFocus();
    if (const QModelIndex selected = report_->currentIndex(); selected.isValid())
        current()->scrollTo(selected);
    empty_->raise();
}

void ListBusView::select(const QString& key)
{
    const QScopedValueRollback<bool> selecting(selecting_, true);
    const QModelIndex index = model_.index(model_.rowOf(key), 0);
    if (!index.isValid()) {
        report_->selectionModel()->clear();
    } else {
        current()->setCurrentIndex(index);
        current()->scrollTo(index);
    }
}

QString ListBusView::selectedKey() const
{
    const QModelIndex index = report_->currentIndex();
    return index.isValid() ? model_.keyAt(index.row()) : QString();
}

void ListBusView::setColumnWidth(int column, int points)
{
    if (points > 0)
        header_->resizeSection(column, points);
}

int ListBusView::columnWidth(int column) const
{
    return header_->sectionSize(column);
}

void ListBusView::setEmptyText(const QString& text)
{
    empty_->setText(text);
    showEmptyText();
}

bool ListBusView::eventFilter(QObject* watched, QEvent* event)
{
    // A selection moved by a key is told from here; a press tells itself, and a focus that comes in says
    // nothing.
    if (event->type() == QEvent::KeyPress)
        keyGesture_ = true;
    else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::FocusIn)
        keyGesture_ = false;
    if (event->type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent*>(event)))
        return true;
    if (event->type() == QEvent::ContextMenu && watched == current()) {
        auto* wanted = static_cast<QContextMenuEvent*>(event);
        const bool byKey = wanted->reason() == QContextMenuEvent::Keyboard;
        const QModelIndex at =
            byKey ? current()->currentIndex()
                  : current()->indexAt(current()->viewport()->mapFromGlobal(wanted->globalPos()));
        if (at.isValid())
            emit menuWanted(byKey ? current()->viewport()->mapToGlobal(current()->visualRect(at).center())
                                  : wanted->globalPos());
        return true;
    }
    return QStackedWidget::eventFilter(watched, event);
}

bool ListBusView::keyPressed(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        if (const QModelIndex at = current()->currentIndex(); at.isValid())
            emit menuWanted(current()->viewport()->mapToGlobal(current()->visualRect(at).center()));
        return true;
    }
    switch (event->key()) {
    case Qt::Key_Insert:
        emit insertPressed();
        return true;
    case Qt::Key_Delete:
        emit deletePressed();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit enterPressed();
        return true;
    case Qt::Key_Backspace:
        emit parentPressed();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
        return pressCurrent();
    default:
        return false;
    }
}

// Whoever comes in by Tab stands on an item that is not selected: the first key selects it.
bool ListBusView::pressCurrent()
{
    QItemSelectionModel* selection = current()->selectionModel();
    const QModelIndex index = selection->currentIndex();
    if (!index.isValid() || selection->isSelected(index))
        return false;
    const QString key = model_.keyAt(index.row());
    select(key);
    emit itemPressed(key);
    return true;
}

void ListBusView::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    empty_->setGeometry(rect().adjusted(24, 40, -24, -24));
}

QList<QAbstractItemView*> ListBusView::views() const
{
    return {report_, icons_};
}

QAbstractItemView* ListBusView::current() const
{
    return qobject_cast<QAbstractItemView*>(currentWidget());
}

void ListBusView::showArrow()
{
    const int column = model_.sortColumn();
    const bool titled = !model_.columnCaptions().value(column).isEmpty();
    header_->setArrow(titled ? column : -1, model_.sortAscending());
}

void ListBusView::showEmptyText()
{
    empty_->setVisible(model_.rowCount() == 0);
}

} // namespace structure
