#pragma once

#include "events/FilterEditor.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>
#include <utility>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimeEdit;

namespace events {

// What the event viewer shows: types, source, equipment, instrument and a span of time.
class frmEventFilter : public QDialog
{
    Q_OBJECT

public:
    frmEventFilter(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                   EventViewer& viewer);

protected:
    void changeEvent(QEvent* event) override;

private:
    // One end of the span: its mode, and the date and time that count while it has a limit.
    struct Side
    {
        QComboBox* mode;
        QDateEdit* date;
        QTimeEdit* time;
    };

    void layOut();
    QWidget* makeTypes();
    QWidget* makeConditions();
    QWidget* makeButtons();
    QLineEdit* makeText(const QString& name);
    Side makeSide(const QString& name);
    void listen();
    void load();

    void collect();
    void showControls();
    void showSide(const Side& side, int mode, const QDateTime& when);
    void fill(QComboBox& box, const QList<int>& texts);

    const session::Session& session_;
    const session::Texts& texts_;
    FilterEditor editor_;
    QCheckBox *chkInfo_, *chkWarning_, *chkError_;
    QComboBox* cbxSource_;
    QLineEdit *txtEquipment_, *txtInstrument_;
    Side from_, to_;
    QLabel* lblHint_;
    QPushButton *cmdReset_, *cmdOK_, *cmdCancel_, *cmdApply_;
    bool showing_ = false;
};

} // namespace events
