#pragma once

#include "session/Commands.h"

#include <QMainWindow>

class QSplitter;
class QStackedWidget;

namespace bus {
class StatusPanels;
}
namespace platform {
class Operator;
}
namespace structure {
class Structure;
class frmListBus;
class frmTreeBus;
} // namespace structure

namespace session {

class CommandStates;
class EmptyState;
class Main;
class MainStatusBar;
class MainToolbar;
class MenuSet;
class Texts;
struct Session;

// The main window: toolbar, the two children with their menus, status bar.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    struct Surroundings
    {
        Session& session;
        const Texts& texts;
        platform::Operator& op;
        structure::Structure& structure;
        bus::StatusPanels& panels;
        const CommandHandlers& handlers;
        CommandStates& commands;
        Main& main;
    };

    explicit frmMain(const Surroundings& surroundings);

    structure::frmTreeBus* treeBus() const { return frmTreeBus_; }
    structure::frmListBus* listBus() const { return frmListBus_; }
    // A company is open, or none: the children, or the next steps in their place.
    void showCompany(bool open);
    void focusPlant();

signals:
    void closed();
    void languageChanged();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Load();
    void layOut();
    void listen();
    void showTree(bool visible);
    void takeTreeWidth();
    void showMenusOf(Place place);
    void runEnabled(Place place, const QString& command);

    Surroundings with_;
    MainToolbar* tlbMain_;
    MainStatusBar* staMain_;
    QStackedWidget* pages_;
    EmptyState* empty_;
    QSplitter* splitter_;
    structure::frmTreeBus* frmTreeBus_;
    structure::frmListBus* frmListBus_;
    MenuSet* treeMenus_;
    MenuSet* listMenus_;
    bool loaded_ = false;
};

} // namespace session
