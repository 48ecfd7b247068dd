#pragma once

#include "structure/LatestJob.h"
#include "structure/PendingWrites.h"
#include "structure/widgets/ResultDialog.h"

namespace structure {

// "Pending writes": what of the whole company is changed here and not yet in the instruments. It is read
// again whenever the operator comes back to it.
class frmPending : public ResultDialog
{
    Q_OBJECT

public:
    frmPending(Structure& structure, session::Session& session, const session::Texts& texts,
               platform::Operator& op);

protected:
    void relabel() override;
    bool event(QEvent* event) override;

private:
    void layOut();
    void refresh();
    void showWrites(const PendingWrites& pending);

    QWidget* nothing_;
    QLabel* lblNothing_;
    QPushButton* cmdRefresh_;
    LatestJob<PendingWrites> job_;
};

} // namespace structure
