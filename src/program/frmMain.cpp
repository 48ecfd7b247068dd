#include "program/frmMain.h"

#include "database/ModelVersion.h"
#include "platform/Guard.h"
#include "program/EmptyState.h"
#include "program/MainStatusBar.h"
#include "program/MainToolbar.h"
#include "program/MenuSet.h"
#include "session/Caption.h"
#include "session/CommandStates.h"
#include "session/Main.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/PlantMarks.h"
#include "structure/Structure.h"
#include "structure/frmListBus.h"
#include "structure/frmTreeBus.h"
#include "structure/widgets/DragGesture.h"
#include "structure/widgets/ListBusView.h"
#include "structure/widgets/NodeView.h"
#include "widgets/FormLanguage.h"
#include "widgets/FormUnits.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>

namespace program {

using namespace session;
using widgets::pointsOf;
using widgets::Set_Language;

frmMain::frmMain(const Surroundings& surroundings)
    : with_(surroundings), tlbMain_(new MainToolbar(with_.session, with_.texts, with_.handlers,
                                                    with_.commands, with_.structure, this)),
      staMain_(new MainStatusBar(with_.panels, with_.texts, this)), pages_(new QStackedWidget(this)),
      empty_(new EmptyState(with_.texts, this)), splitter_(new QSplitter(this)),
      frmTreeBus_(new structure::frmTreeBus(with_.structure, with_.session, this)),
      frmListBus_(new structure::frmListBus(with_.structure, with_.session, with_.texts, this)),
      treeMenus_(new MenuSet(Place::Tree, frmTreeBus_, with_.handlers, with_.commands)),
      listMenus_(new MenuSet(Place::List, frmListBus_, with_.handlers, with_.commands))
{
    setObjectName("frmMain");
    layOut();
    listen();
}

void frmMain::layOut()
{
    addToolBar(tlbMain_);
    setStatusBar(staMain_);
    setContextMenuPolicy(Qt::NoContextMenu);
    splitter_->setObjectName("splitter");
    splitter_->setHandleWidth(5);
    splitter_->addWidget(frmTreeBus_);
    splitter_->addWidget(frmListBus_);
    splitter_->setStretchFactor(0, 0);
    splitter_->setStretchFactor(1, 1);
    splitter_->setChildrenCollapsible(false);
    frmTreeBus_->setMinimumWidth(120);
    frmListBus_->setMinimumWidth(240);
    pages_->addWidget(empty_);
    pages_->addWidget(splitter_);
    setCentralWidget(pages_);
    resize(1120, 720);
}

// The focus still wanders while the windows that belong to this one go.
frmMain::~frmMain()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void frmMain::listen()
{
    connect(frmTreeBus_, &structure::frmTreeBus::menuWanted, this,
            [this](const QPoint& place) { treeMenus_->popup(place, with_.structure.levelOfTree()); });
    connect(frmListBus_, &structure::frmListBus::menuWanted, this,
            [this](const QPoint& place) { listMenus_->popup(place, with_.structure.levelOfList()); });
    connect(frmTreeBus_, &structure::frmTreeBus::commandWanted, this,
            [this](const QString& command) { runEnabled(Place::Tree, command); });
    connect(frmListBus_, &structure::frmListBus::commandWanted, this,
            [this](const QString& command) { runEnabled(Place::List, command); });
    connect(empty_, &EmptyState::commandWanted, this,
            [this](const QString& command) { with_.handlers.run(command); });
    connect(staMain_, &MainStatusBar::panelDoubleClicked, this, [this](const QString& key) {
        if (key == "Allarm")
            with_.handlers.run("Allarms");
        else if (key == "COMSet")
            with_.handlers.run("Port");
    });
    connect(staMain_, &MainStatusBar::panelClicked, this, [this](const QString& key) {
        if (key == "Waiting")
            with_.handlers.run("Pending");
    });
    staMain_->askForPlant(with_.connectedPlant);
    connect(&with_.marks, &structure::PlantMarks::changed, this,
            [this] { staMain_->showWaiting(with_.marks.waiting(), with_.marks.unconfirmed()); });
    connect(&with_.structure, &structure::Structure::treeVisibilityChanged, this, &frmMain::showTree);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (frmTreeBus_->isAncestorOf(now))
            showMenusOf(Place::Tree);
        else if (frmListBus_->isAncestorOf(now))
            showMenusOf(Place::List);
    });
    frmListBus_->installEventFilter(this);
    letDrag();
}

// From the tree and from each view of the list, over the tree.
void frmMain::letDrag()
{
    structure::NodeView& tree = frmTreeBus_->view();
    new structure::DragGesture(with_.drag, structure::PlantDrag::FromTree, tree, tree);
    for (QAbstractItemView* view : frmListBus_->view().views())
        new structure::DragGesture(with_.drag, structure::PlantDrag::FromList, *view, tree);
}

void frmMain::Load()
{
    setWindowTitle(with_.session.AppTitle);
    with_.commands.Set_Form_Icons(with_.session.ToolbarSet.Icons);
    with_.commands.Set_View_Toolbar(with_.session.ToolbarSet.View);
    takeTreeWidth();
    if (with_.session.TreeBusSet.Visible == 0)
        with_.structure.Hide_TreeBus();
    else
        with_.commands.EnableDisable_StructureButtons(true);
    with_.panels.setPicture(bus::Panel::Allarm, bus::images::kRest);
    showMenusOf(Place::Tree);
    showCompany(frmListBus_->isEnabledTo(this));
    for (QWidget* form : {static_cast<QWidget*>(frmTreeBus_), static_cast<QWidget*>(frmListBus_),
                          static_cast<QWidget*>(this)})
        Set_Language(*form, with_.session, with_.texts, with_.op);
}

void frmMain::showCompany(bool open)
{
    pages_->setCurrentWidget(open ? static_cast<QWidget*>(splitter_) : empty_);
    focusPlant();
}

void frmMain::showCaption()
{
    setWindowTitle(mainCaption(with_.session, with_.texts));
    staMain_->showUser(with_.session);
    staMain_->showModel(database::newerModel(with_.session));
}

void frmMain::showHistory(const QString& failure)
{
    staMain_->showHistory(failure);
}

// Where the keys go at first: the tree or, where it is hidden, the list; without a company its next steps.
void frmMain::focusPlant()
{
    if (pages_->currentWidget() == empty_)
        empty_->setFocus();
    else if (frmTreeBus_->isHidden())
        frmListBus_->setFocus();
    else
        frmTreeBus_->setFocus();
}

void frmMain::showTree(bool visible)
{
    const bool hadFocus = frmTreeBus_->isAncestorOf(focusWidget());
    frmTreeBus_->setVisible(visible);
    if (visible)
        takeTreeWidth();
    else if (hadFocus)
        frmListBus_->setFocus();
    with_.commands.EnableDisable_StructureButtons(visible);
}

// The tree takes the width that was remembered, at most half of the window; a third of it at the first start.
void frmMain::takeTreeWidth()
{
    const int remembered = pointsOf(with_.session.TreeBusSet.Width);
    const int tree = with_.session.TreeBusSet.Width < 0 ? width() / 3 : std::min(remembered, width() / 2);
    splitter_->setSizes({tree, width() - tree});
}

// The menu bar is that of the active child.
void frmMain::showMenusOf(Place place)
{
    const QList<QMenu*>& menus = (place == Place::Tree ? treeMenus_ : listMenus_)->bar();
    if (!menus.isEmpty() && menuBar()->actions().contains(menus.first()->menuAction()))
        return;
    menuBar()->clear();
    for (QMenu* menu : menus)
        menuBar()->addMenu(menu);
}

// A key stands for a command only while the command's menu entry or button may be used.
void frmMain::runEnabled(Place place, const QString& command)
{
    const QString name = command.endsWith("Node") ? command.chopped(4) : command;
    const bool enabled = name == "Parent" ? with_.commands.buttonEnabled(name)
                                          : with_.commands.menuEnabled(place, "mnu" + name);
    if (enabled)
        with_.handlers.run(command);
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    tlbMain_->relabel();
    staMain_->relabel();
    empty_->relabel();
    platform::guarded("Module/Set_Language", [this] { showCaption(); });
    emit languageChanged();
}

void frmMain::showEvent(QShowEvent* event)
{
    if (!std::exchange(loaded_, true)) {
        Load();
        focusPlant();
    }
    QMainWindow::showEvent(event);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    if (!with_.main.QueryUnload()) {
        event->ignore();
        return;
    }
    frmListBus_->keepColumnWidths();
    with_.main.Unload();
    event->accept();
    emit closed();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    // The children take no input exactly as long as no company is open.
    if (watched == frmListBus_ && event->type() == QEvent::EnabledChange)
        showCompany(frmListBus_->isEnabledTo(this));
    return QMainWindow::eventFilter(watched, event);
}

} // namespace program
