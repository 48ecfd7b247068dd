#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace events {

class EventViewer;

// One event whole, and where its equipment or instrument stands in the plant.
class frmEventText : public QDialog
{
    Q_OBJECT

public:
    frmEventText(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                 EventViewer& viewer);

protected:
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    QLabel* makeCell(const QString& name, const QString& text);

    const session::Session& session_;
    const session::Texts& texts_;
    EventViewer& viewer_;
    QLabel* lblPlace_;
    QPushButton *cmdShow_, *cmdClose_;
};

} // namespace events
