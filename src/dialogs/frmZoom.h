#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>

class QAction;
class QLabel;
class QMenu;
class QProgressBar;
class QPushButton;
class QStatusBar;
class QTreeView;

namespace dialogs {

class Zoom;

// The lookup list: a row is chosen by double click or Enter, Escape chooses nothing.
class frmZoom : public QDialog
{
    Q_OBJECT

public:
    frmZoom(const session::Session& session, const session::Texts& texts, platform::Operator& op, Zoom& zoom);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void makePopup();
    void listen();
    bool keyPressed(int key);
    void pick(const QModelIndex& index);
    int selectedRow() const;
    int rowOfOperator() const;
    void select(int row);
    void showFilled();
    int fitColumns();
    void shareWidth();
    void fitWindow();

    const session::Texts& texts_;
    Zoom& zoom_;
    QTreeView* lvwZoom_;
    widgets::SortHeader* header_;
    QStatusBar* staZoom_;
    QLabel* rows_;
    QProgressBar* prgZoom_;
    QPushButton* cmdOK_;
    bool preselected_ = false; // the row is the list's own choice
    QMenu* mnuPopup_;
    QAction* mnuFind_;
    QAction* mnuRefresh_;
};

} // namespace dialogs
