#pragma once

#include "structure/LatestJob.h"
#include "structure/ListModel.h"
#include "structure/PendingWrites.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace platform {
class Operator;
}
namespace session {
struct Session;
class Texts;
} // namespace session

namespace structure {

class ResultView;
class Structure;

// "Pending writes": what of the whole company is changed here and not yet in the instruments. It is read
// again whenever the operator comes back to it.
class frmPending : public QDialog
{
    Q_OBJECT

public:
    frmPending(Structure& structure, session::Session& session, const session::Texts& texts,
               platform::Operator& op);

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void layOut();
    void listen();
    void refresh();
    void showWrites(const PendingWrites& pending);
    void take(const QString& key);
    void relabel();

    Structure& structure_;
    session::Session& session_;
    const session::Texts& texts_;
    ListModel writes_;
    QStackedWidget* pages_;
    ResultView* lvwPending_;
    QWidget* nothing_;
    QLabel *lblNothing_, *lblPending_;
    QPushButton *cmdRefresh_, *cmdShow_, *cmdClose_;
    LatestJob<PendingWrites> job_;
};

} // namespace structure
