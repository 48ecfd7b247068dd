#pragma once

#include "bus/TraceModel.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;

namespace bus {

class TraceView;

// "Line trace": every byte that left or came in, while it happens. It stays beside the windows that the
// operator works in.
class frmTrace : public QDialog
{
    Q_OBJECT

public:
    frmTrace(session::Session& session, const session::Texts& texts, platform::Operator& op,
             const LineTrace& trace);

protected:
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void followSoon();
    void showCount();
    void save();
    void relabel();

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    TraceModel model_;
    widgets::NarrowField* txtNarrow_;
    TraceView* lvwTrace_;
    QLabel* lblCount_;
    QCheckBox* chkPause_;
    QPushButton *cmdSave_, *cmdClose_;
    bool following_ = false; // a look at the line is on its way
};

} // namespace bus
