#include "events/widgets/EventView.h"

#include "events/EventModel.h"
#include "platform/widgets/Icons.h"
#include "widgets/SortHeader.h"

#include <QKeyEvent>
#include <QLabel>
#include <QStyledItemDelegate>

namespace events {

namespace {

constexpr int kRowPadding = 2;

// Draws the types with their pictures. The model knows numbers, not pictures.
class TypeDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * kRowPadding);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        static const QString kPictures[] = {QString(), "log-info", "log-warning", "log-error"};
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() != 0)
            return;
        option->icon = platform::icon(kPictures[index.data(EventModel::ImageRole).toInt()]);
        option->features |= QStyleOptionViewItem::HasDecoration;
    }
};

} // namespace

EventView::EventView(EventModel& model, QWidget* parent)
    : QTreeView(parent), model_(model), header_(new widgets::SortHeader(this)), empty_(new QLabel(viewport()))
{
    setModel(&model);
    setHeader(header_);
    setItemDelegate(new TypeDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setIconSize({16, 16});
    header_->setSectionsClickable(true);
    empty_->setObjectName("lblEmpty");
    empty_->setTextFormat(Qt::PlainText);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setForegroundRole(QPalette::PlaceholderText);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);

    connect(this, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { emit taken(index.row()); });
    connect(header_, &QHeaderView::sectionClicked, this,
            [this](int column) { model_.clickColumn(EventColumn(column)); });
    connect(&model_, &EventModel::sortingChanged, this, [this] {
        showArrow();
        if (!model_.isSorting())
            scrollTo(currentIndex());
    });
    connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        current_.reset();
        if (currentIndex().isValid())
            current_ = model_.eventAt(currentIndex().row());
    });
    connect(&model_, &EventModel::rowsChanged, this, &EventView::keepPlace);
    showArrow();
}

void EventView::showArrow()
{
    header_->setArrow(model_.sortColumn(), model_.sortAscending());
}

// The current row stays current while it is shown.
void EventView::keepPlace()
{
    const int row = current_ && *current_ < model_.store().size() ? model_.rowOf(*current_) : -1;
    current_.reset();
    if (row >= 0) {
        setCurrentIndex(model_.index(row, 0));
        scrollTo(currentIndex(), PositionAtCenter);
    } else if (!currentIndex().isValid()) {
        setCurrentIndex(model_.index(0, 0));
    }
    empty_->setVisible(model_.rowCount() == 0);
}

void EventView::setEmptyText(const QString& text)
{
    empty_->setText(text);
    placeEmptyText();
}

void EventView::placeEmptyText()
{
    empty_->setGeometry(viewport()->rect().adjusted(40, 0, -40, 0));
}

std::vector<int> EventView::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void EventView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        toggleChecks();
    else
        QTreeView::keyPressEvent(event);
}

// All selected rows take what the current one becomes.
void EventView::toggleChecks()
{
    if (!currentIndex().isValid())
        return;
    const bool checked = !model_.isChecked(currentIndex().row());
    model_.setChecked(selectedRows(), checked);
}

// Letters don't search: there is a field for that, and a million rows would have to be looked at.
void EventView::keyboardSearch(const QString&) {}

void EventView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    placeEmptyText();
}

} // namespace events
