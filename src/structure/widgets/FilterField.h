#pragma once

#include <QLineEdit>
#include <QTimer>

namespace structure {

class Structure;

// The filter over the list: hidden until it is opened, it narrows the list as one types. Escape shows all
// again and hides it; Enter and the arrow down go on into the list. The words typed for one list are gone
// when another is shown.
class FilterField : public QLineEdit
{
    Q_OBJECT

public:
    explicit FilterField(Structure& structure, QWidget* parent = nullptr);

    void open();
    void dismiss();

signals:
    void listWanted(); // the focus is to go to the list

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void apply();
    void goToList();

    Structure& structure_;
    QString node_; // whose children the filter was typed for
    QTimer due_;
};

} // namespace structure
