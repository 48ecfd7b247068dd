#include "structure/widgets/FilterField.h"

#include "platform/widgets/Icons.h"
#include "structure/Structure.h"

#include <QKeyEvent>
#include <utility>

namespace structure {

namespace {

constexpr int kMostCharacters = 255;

} // namespace

FilterField::FilterField(Structure& structure, QWidget* parent) : QLineEdit(parent), structure_(structure)
{
    setClearButtonEnabled(true);
    addAction(platform::icon("filter"), LeadingPosition);
    setMaxLength(kMostCharacters);
    hide();

    // A moment after the keys that are waiting, so that a long list never holds the typing up.
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &FilterField::apply);
    connect(this, &QLineEdit::textChanged, &due_, qOverload<>(&QTimer::start));
    connect(this, &QLineEdit::returnPressed, this, &FilterField::goToList);

    connect(&structure.list(), &ListModel::filterChanged, this,
            [this] { setText(structure_.list().filter()); });
    connect(&structure, &Structure::nodeSelected, this, [this](const QString& key) {
        if (key == std::exchange(node_, key))
            return;
        clear();
        apply();
    });
}

void FilterField::open()
{
    show();
    setFocus();
    selectAll();
}

void FilterField::dismiss()
{
    clear();
    apply();
    hide();
    emit listWanted();
}

void FilterField::apply()
{
    due_.stop();
    ListModel& list = structure_.list();
    if (list.filter() == text())
        return;
    list.setFilter(text());
    // What is hidden can't stay selected: a command would hit it unseen.
    const QString selected = structure_.selectedItem();
    structure_.selectItem(list.rowOf(selected) < 0 ? QString() : selected);
    emit structure_.itemMenusWanted();
}

void FilterField::goToList()
{
    apply();
    emit listWanted();
    const ListModel& list = structure_.list();
    if (structure_.selectedItem().isEmpty() && list.rowCount() > 0)
        structure_.pressItem(list.keyAt(0));
}

void FilterField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else if (event->key() == Qt::Key_Down)
        goToList();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace structure
