#include "widgets/TextField.h"

#include <QKeyEvent>

namespace widgets {

TextField::TextField(const QString& name, int limit, Filter filter, QWidget* parent)
    : FieldEdit(verbsOf(this, std::move(filter)), name, parent), limit_(limit)
{
    setMaxLength(limit);
}

FieldEdit::Verbs TextField::verbsOf(TextField* field, Filter filter)
{
    Verbs verbs;
    verbs.changed = [field](const QString& text) {
        // A paste that was cut inside a character leaves half of it, and half a character is none.
        if (!text.isEmpty() && text.back().isHighSurrogate())
            field->setText(text.chopped(1));
        else
            emit field->changed(text);
    };
    verbs.entered = [field] {
        field->remembered_ = field->text();
        emit field->entered();
    };
    verbs.restore = [field] {
        if (field->text() == field->remembered_)
            return false;
        field->setText(field->remembered_);
        field->selectAll();
        return true;
    };
    verbs.filter = [filter = std::move(filter)](const QString& typed) {
        return filter ? filter(typed) : std::optional(typed);
    };
    return verbs;
}

void TextField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        focusNextChild();
    else
        FieldEdit::keyPressEvent(event);
}

} // namespace widgets
