#pragma once

#include <QLineEdit>

namespace property {

class PropertyModel;

// A text field of the dialog: takes its keys through the model's filter, tells the model what it holds and
// when it is entered. The focus counts as staying while another window is active.
class FieldEdit : public QLineEdit
{
    Q_OBJECT

public:
    FieldEdit(PropertyModel& model, const QString& name, QWidget* parent = nullptr);

    // Shows what the model holds, without telling it.
    void showText(const QString& text, int limit);

signals:
    void left();             // the focus went to another control
    void stepped(int steps); // the arrow keys up and down

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    PropertyModel& model_;
    bool entered_ = false;
};

} // namespace property
