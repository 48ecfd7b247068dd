#pragma once

#include "bus/Forward.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>
#include <QTimer>

class QAction;
class QLabel;
class QListWidget;
class QMenu;
class QMenuBar;
class QProgressBar;
class QPushButton;
class QToolBar;
class QTreeView;

namespace console {

class Console;
class ConsoleModel;

// The window of the console: its commands as menu and toolbar, the live list, what goes on and how far it is.
class frmReadWrite : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        const session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        Console& console;
        ConsoleModel& model;
        const bus::StatusPanels& panels;
    };

    // Opens on the item of the key.
    frmReadWrite(const Surroundings& surroundings, const QString& key, QWidget* parent = nullptr);
    ~frmReadWrite() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMenuBar* makeMenus();
    QToolBar* makeToolbar();
    QWidget* makeHeading();
    QWidget* makeList();
    QWidget* makeConcerns();
    QWidget* makeStatusBar();
    QAction* addCommand(QMenu& menu, const char* name, int tag, void (Console::*command)());
    // Runs a command that may hold the program for seconds when menus have closed and the window is painted.
    void runSettled(void (Console::*command)());
    QAction* addButton(QToolBar& toolbar, const char* key, const QString& icon, int tag, QAction* command);

    void showCommands();
    void showHints();
    void showUnwritten();
    void tellOperationOver();
    void goToFailed(int row);
    void showActivity();
    void showConcerns();
    void showSortArrows();
    void selectLine(int row);
    void tmrRefresh_Timer();

    const session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    Console& console_;
    ConsoleModel& model_;
    const bus::StatusPanels& staMain_;
    QMenu* mnuFile_;
    QMenu* mnuCommands_;
    QAction *mnuConnect_, *mnuDisconnect_, *mnuAutoDisconnect_, *mnuSimulator_, *mnuRead_, *mnuWrite_,
        *mnuExit_;
    QAction *connect_, *disconnect_, *autoDisconnect_, *simulator_, *read_, *write_, *exit_;
    QLabel *lblGroup_, *lblItem_, *lblActivity_, *lblUnwritten_;
    QPushButton* cmdLeaveOther_; // ends the connection to another group
    QTreeView* lvwItems_;
    widgets::SortHeader* header_;
    QWidget* concerns_;
    QLabel* lblConcerns_;
    QListWidget* lvwConcerns_;
    QProgressBar* prgLoad_;
    QPushButton* cmdChanged_; // what the last read has changed
    QLabel *comSetPicture_, *comSetText_, *info_;
    QTimer tmrRefresh_;
    bool settling_ = false;
};

} // namespace console
