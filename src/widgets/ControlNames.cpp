#include "widgets/ControlNames.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace widgets {

namespace {

// The name that was given here, to tell it from one that the form has given.
constexpr char kGiven[] = "GivenName";

QString plain(QString text)
{
    text = text.remove(u'&').simplified();
    while (text.endsWith(u':') || text.endsWith(u'.'))
        text.chop(1);
    return text;
}

// The words of the labels that stand in front of an item of a layout: in its row, or before it.
QString wordsBefore(const QLayout& layout, int index)
{
    if (const auto* grid = qobject_cast<const QGridLayout*>(&layout)) {
        int row = 0, column = 0, rows = 0, columns = 0;
        const_cast<QGridLayout*>(grid)->getItemPosition(index, &row, &column, &rows, &columns);
        while (--column >= 0) {
            const QLayoutItem* before = grid->itemAtPosition(row, column);
            if (const auto* label = before ? qobject_cast<QLabel*>(before->widget()) : nullptr)
                return label->text();
        }
        return {};
    }
    while (--index >= 0) {
        if (const auto* label = qobject_cast<QLabel*>(layout.itemAt(index)->widget()))
            return label->text();
    }
    return {};
}

bool holds(const QLayoutItem& item, const QWidget& control)
{
    if (item.widget())
        return item.widget() == &control;
    const QLayout* inner = const_cast<QLayoutItem&>(item).layout();
    for (int i = 0; inner && i < inner->count(); ++i) {
        if (holds(*inner->itemAt(i), control))
            return true;
    }
    return false;
}

// The label nearest to the control, from the innermost layout outwards.
QString labelOf(const QLayout& layout, const QWidget& control)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* item = layout.itemAt(i);
        if (!holds(*item, control))
            continue;
        const QString nearer = item->layout() ? labelOf(*item->layout(), control) : QString();
        return nearer.isEmpty() ? wordsBefore(layout, i) : nearer;
    }
    return {};
}

QString frameOf(const QWidget& control)
{
    for (const QWidget* around = control.parentWidget(); around; around = around->parentWidget()) {
        if (const auto* frame = qobject_cast<const QGroupBox*>(around); frame && !frame->title().isEmpty())
            return frame->title();
        if (around->isWindow())
            return around->windowTitle().section(u'\\', -1);
    }
    return {};
}

QString nameFor(const QWidget& control)
{
    const QWidget* around = control.parentWidget();
    // The picture in a field is called as the field.
    const auto* inside = qobject_cast<const QLineEdit*>(around);
    const auto* field = inside ? inside : qobject_cast<const QLineEdit*>(&control);
    for (const QString& candidate :
         {control.toolTip(), field ? field->placeholderText() : QString(),
          around && around->layout() ? labelOf(*around->layout(), control) : QString(), frameOf(control)}) {
        if (const QString name = plain(candidate); !name.isEmpty())
            return name;
    }
    return {};
}

// A part of another control, which speaks for it.
bool belongsToAnother(const QWidget& control)
{
    const QWidget* around = control.parentWidget();
    return qobject_cast<const QAbstractSpinBox*>(around) || qobject_cast<const QComboBox*>(around);
}

} // namespace

void nameControls(QWidget& form)
{
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const QString given = control->property(kGiven).toString();
        const bool pressed = qobject_cast<QAbstractButton*>(control);
        if ((control->focusPolicy() == Qt::NoFocus && !pressed) || belongsToAnother(*control) ||
            control->accessibleName() != given)
            continue;
        control->setAccessibleName({});
        const QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(control);
        if (heard && !heard->text(QAccessible::Name).trimmed().isEmpty())
            continue;
        const QString name = nameFor(*control);
        control->setAccessibleName(name);
        control->setProperty(kGiven, name);
    }
}

} // namespace widgets
