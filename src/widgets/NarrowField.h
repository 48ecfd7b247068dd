#pragma once

#include <QLineEdit>
#include <QTimer>

namespace widgets {

// The field that narrows the list beside it as one types. Escape shows all again before it closes the window,
// Down goes to the list.
class NarrowField : public QLineEdit
{
    Q_OBJECT

public:
    explicit NarrowField(QWidget* parent = nullptr);

    // Waits no longer: its text has been taken.
    void settle() { due_.stop(); }

signals:
    void narrowed(); // a moment after the last key
    void listWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTimer due_;
};

} // namespace widgets
