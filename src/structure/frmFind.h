#pragma once

#include "structure/LatestJob.h"
#include "structure/PlantSearch.h"
#include "structure/widgets/ResultDialog.h"

#include <QTimer>

class QLineEdit;

namespace structure {

// "Find in company": what is typed is searched in the whole company while the typing goes on.
class frmFind : public ResultDialog
{
    Q_OBJECT

public:
    frmFind(Structure& structure, session::Session& session, const session::Texts& texts,
            platform::Operator& op);

protected:
    void relabel() override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void listen();
    void searchSoon();
    void search();
    void showFindings(const Findings& findings);
    void takeSelected();
    bool isSearching() const { return typing_.isActive() || job_.isRunning(); }

    QLineEdit* txtFind_;
    QTimer typing_; // runs for a moment after each key
    bool takeWhenFound_ = false;
    LatestJob<Findings> job_;
};

} // namespace structure
