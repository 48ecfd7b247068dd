#pragma once

#include "structure/LatestJob.h"
#include "structure/PendingWrites.h"
#include "structure/widgets/ResultDialog.h"

#include <functional>

namespace structure {

// "Pending writes": what of the whole company is changed here and not yet in the instruments, beside what
// these hold as far as it is known, and the writes that were not confirmed. It is read again whenever the
// operator comes back to it. A change can be taken back, and the console opened where it stands.
class frmPending : public ResultDialog
{
    Q_OBJECT

public:
    // `readWrite` opens the console on what is selected in the plant.
    frmPending(Structure& structure, session::Session& session, const session::Texts& texts,
               platform::Operator& op, std::function<void()> readWrite);

protected:
    void relabel() override;
    bool event(QEvent* event) override;

private:
    void layOut();
    void refresh();
    void showWrites(const PendingWrites& pending);
    void enableCommands();
    void openConsole();
    void takeBack();

    platform::Operator& operator_;
    std::function<void()> readWrite_;
    QWidget* nothing_;
    QLabel* lblNothing_;
    QPushButton *cmdRefresh_, *cmdTakeBack_, *cmdReadWrite_;
    LatestJob<PendingWrites> job_;
};

} // namespace structure
