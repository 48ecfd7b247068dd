#pragma once

#include <QLineEdit>
#include <functional>
#include <optional>

namespace widgets {

// A text field of a dialog: takes its keys through a filter, tells what it holds and when it is entered. The
// focus counts as staying while another window is active.
class FieldEdit : public QLineEdit
{
    Q_OBJECT

public:
    // What the field asks of the logic behind it.
    struct Verbs
    {
        std::function<void(const QString& text)> changed;
        std::function<void()> entered;
        // Escape; false when there was nothing to put back.
        std::function<bool()> restore;
        // The text that goes in for what is typed; none drops it.
        std::function<std::optional<QString>(const QString& typed)> filter;
    };

    FieldEdit(Verbs verbs, const QString& name, QWidget* parent = nullptr);

    // Shows what the model holds, without telling it. What is longer than the limit stands there whole.
    void showText(const QString& text, int limit);
    // Whether the focus counts as being here, whatever the window system has told so far: a field that is
    // entered isn't entered again.
    void setEntered(bool entered) { entered_ = entered; }

signals:
    void left();             // the focus went to another control
    void stepped(int steps); // the arrow keys up and down

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    Verbs verbs_;
    bool entered_ = false;
};

} // namespace widgets
