#pragma once

#include "structure/LatestJob.h"
#include "structure/ListModel.h"
#include "structure/PlantSearch.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QLineEdit;
class QPushButton;

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

// "Find in company": what is typed is searched in the whole company while the typing goes on; a result taken is
// shown in the main window, and this one stays for the next.
class frmFind : public QDialog
{
    Q_OBJECT

public:
    frmFind(Structure& structure, session::Session& session, const session::Texts& texts,
            platform::Operator& op);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut();
    void listen();
    void searchSoon();
    void search();
    void showFindings(const Findings& findings);
    void take(const QString& key);
    void takeSelected();
    void relabel();
    bool isSearching() const { return typing_.isActive() || job_.isRunning(); }

    Structure& structure_;
    session::Session& session_;
    const session::Texts& texts_;
    ListModel results_;
    QLineEdit* txtFind_;
    ResultView* lvwFound_;
    QLabel* lblFound_;
    QPushButton *cmdShow_, *cmdClose_;
    QTimer typing_; // runs for a moment after each key
    bool takeWhenFound_ = false;
    LatestJob<Findings> job_;
};

} // namespace structure
