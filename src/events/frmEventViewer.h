#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>
#include <QTimer>
#include <functional>

class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QProgressBar;
class QStatusBar;
class QToolBar;

namespace events {

class EventView;
class EventViewer;
class TimelineStrip;

// The events of all log files.
class frmEventViewer : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        std::function<void(const QString& command)> runCommand; // a command of the main window
        EventViewer& viewer;
    };

    explicit frmEventViewer(const Surroundings& surroundings);
    ~frmEventViewer() override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void listen();
    QMenuBar* makeMenus();
    QToolBar* makeToolbar();
    QStatusBar* makeStatusBar();
    QAction* addEntry(QMenu& menu, const char* name, const char* tag, const std::function<void()>& command);
    QAction* addOwnEntry(QMenu& menu, const char* name, const char* text, const QKeySequence& keys,
                         const std::function<void()>& command);
    void addButton(const char* key, const char* icon, const char* tag, QAction* entry);

    void setColumnWidths();
    void keepColumnWidths();
    void chooseIcons(const QString& command);
    void ResetIcon();
    void copyRows();
    void narrow();
    void showState();
    void showRows();
    void relabel();

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    std::function<void(const QString&)> runCommand_;
    EventViewer& viewer_;

    QAction *mnuRefresh_, *mnuExport_, *mnuPrint_, *mnuCheck_, *mnuUncheck_, *mnuCopy_, *mnuShow_;
    QAction *mnuAllEvents_, *mnuFilterEvents_;
    QToolBar* tlbMain_;
    QLineEdit* txtNarrow_;
    TimelineStrip* timeline_;
    EventView* lvwItems_;
    QProgressBar* prgLoad_;
    QLabel *info_, *narrowed_, *unread_;
    QTimer typing_;
};

} // namespace events
