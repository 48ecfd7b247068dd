#include "widgets/FieldEdit.h"

#include "session/WholeCharacters.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace widgets {

namespace {

constexpr int kWithoutLimit = 32767;

// A character rather than a command: the editing keys and shortcuts are no concern of the filter. Ctrl and
// Alt together are the third level of some keyboards.
bool isCharacter(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return !event.text().isEmpty() && event.text().at(0).category() != QChar::Other_Control &&
           (!command || command == (Qt::ControlModifier | Qt::AltModifier));
}

// Alt and a letter that no button took: the field below would insert it behind the filter's back.
bool isMnemonic(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return command == Qt::AltModifier && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

FieldEdit::FieldEdit(Verbs verbs, const QString& name, QWidget* parent)
    : QLineEdit(parent), verbs_(std::move(verbs))
{
    setObjectName(name);
    // Locked, it takes the ground of the frame around it.
    QPalette colours = palette();
    colours.setBrush(QPalette::Disabled, QPalette::Base, Qt::transparent);
    setPalette(colours);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        // A paste that the limit cuts may end in half a character.
        const QString whole = session::wholeCharacters(text);
        if (whole != text)
            showText(whole, maxLength());
        verbs_.changed(whole);
    });
}

void FieldEdit::showText(const QString& text, int limit)
{
    const QSignalBlocker blocker(this);
    const int length = std::max(limit > 0 ? limit : kWithoutLimit, int(text.size()));
    if (maxLength() != length) // setting it moves the cursor, even to the same length
        setMaxLength(length);
    if (this->text() == text)
        return;
    const int cursor = cursorPosition();
    setText(text);
    setCursorPosition(entered_ ? cursor : 0);
}

void FieldEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (entered_)
        return;
    entered_ = true;
    verbs_.entered();
    // The click that brought the focus puts the cursor down after this.
    if (event->reason() == Qt::MouseFocusReason)
        QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
    else
        selectAll();
}

void FieldEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
        return;
    entered_ = false;
    setCursorPosition(0);
    emit left();
}

void FieldEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        // With nothing to put back the key is the dialog's.
        event->setAccepted(verbs_.restore());
        return;
    }
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        emit stepped(event->key() == Qt::Key_Up ? 1 : -1);
        return;
    }
    if (isMnemonic(*event)) {
        event->ignore();
        return;
    }
    if (!isCharacter(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (const auto accepted = verbs_.filter(event->text()))
        insert(*accepted);
}

void FieldEdit::inputMethodEvent(QInputMethodEvent* event)
{
    QString committed = event->commitString();
    if (!committed.isEmpty())
        committed = verbs_.filter(committed).value_or(QString());
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(committed, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

} // namespace widgets
