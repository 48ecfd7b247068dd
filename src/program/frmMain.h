#pragma once

#include "bus/Forward.h"
#include "platform/Forward.h"
#include "session/Commands.h"
#include "session/Forward.h"
#include "structure/Forward.h"

#include <QMainWindow>
#include <functional>

class QSplitter;
class QStackedWidget;

namespace program {

class EmptyState;
class MainStatusBar;
class MainToolbar;
class MenuSet;

// The main window: toolbar, the two children with their menus, status bar.
class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        structure::Structure& structure;
        bus::StatusPanels& panels;
        const session::CommandHandlers& handlers;
        session::CommandStates& commands;
        structure::PlantDrag& drag;
        session::Main& main;
        structure::PlantMarks& marks;
        std::function<QString()> connectedPlant;
    };

    explicit frmMain(const Surroundings& surroundings);
    ~frmMain() override;

    structure::frmTreeBus* treeBus() const { return frmTreeBus_; }
    structure::frmListBus* listBus() const { return frmListBus_; }
    // A company is open, or none: the children, or the next steps in their place.
    void showCompany(bool open);
    void focusPlant();
    // Company and operator, in the caption and in the status bar.
    void showCaption();
    void showHistory(const QString& failure);

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
    void letDrag();
    void showTree(bool visible);
    void takeTreeWidth();
    void showMenusOf(session::Place place);
    void runEnabled(session::Place place, const QString& command);

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

} // namespace program
