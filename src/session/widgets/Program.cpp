#include "session/widgets/Program.h"

#include "console/frmReadWrite.h"
#include "database/frmConnection.h"
#include "dialogs/frmMessage.h"
#include "dialogs/frmZoom.h"
#include "dialogs/frmZoomDate.h"
#include "events/frmReadLogFiles.h"
#include "platform/widgets/DesktopOperator.h"
#include "property/frmProperty.h"
#include "property/frmPropertyCopy.h"
#include "session/Configuration.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "session/frmLanguage.h"
#include "session/frmMain.h"
#include "session/frmPresentation.h"
#include "session/frmVideoProperty.h"
#include "structure/frmFind.h"
#include "structure/frmListBus.h"
#include "structure/frmPending.h"
#include "structure/frmTreeBus.h"
#include "values/Cyrillic.h"

#include <QApplication>

namespace session {

Program::Program(const Surroundings& surroundings)
    : with_(surroundings), structure_(with_.session, with_.texts, with_.op),
      database_(with_.session, with_.texts, with_.op, structure_),
      events_(with_.session, with_.op, with_.clock), purge_(with_.session, with_.op, with_.clock),
      consoleModel_(with_.clock),
      bus_({with_.session, with_.texts, with_.port, with_.clock, with_.op, events_, panels_, consoleModel_}),
      console_({with_.session, with_.texts, with_.op, with_.clock, structure_, events_, bus_, consoleModel_}),
      zoom_(with_.session, with_.op), editor_({with_.session, with_.texts, with_.op, structure_, zoom_,
                                               [this](const QString& key) { property_.open(key); }}),
      property_(with_.session, with_.texts, with_.op, structure_),
      propertyCopy_(with_.session, with_.texts, with_.op, structure_, property_),
      commands_(with_.session, structure_),
      main_({with_.session, with_.texts, with_.op, with_.clock, commands_, services()}),
      alarmNotice_(with_.session, with_.texts)
{
    registerCommands();
    registerForms();
    listen();
}

Program::~Program() = default;

MainServices Program::services()
{
    MainServices services;
    services.Read_Configuration = [this] { return Read_Configuration(with_.session); };
    services.Write_Configuration = [this] { return Write_Configuration(with_.session); };
    services.Inizialize_RUChr = [] { values::Inizialize_RUChr(); };
    services.anotherInstanceRuns = [this] {
        instance_.emplace(with_.session.AppPath);
        return instance_->anotherIsRunning();
    };
    services.Connect_Database = [this](const QString& path) { return database_.Connect_Database(path); };
    services.Disconnect_Database = [this] { database_.Disconnect_Database(); };
    services.Delete_Log = [this](bool enabled, bool all) { purge_.Delete_Log(enabled, all); };
    services.Set_COMPort = [this] { return bus_.Set_COMPort(); };
    services.Open_COMConnection = [this] { return bus_.Open_COMConnection(); };
    services.Close_COMConnection = [this] { return bus_.Close_COMConnection(); };
    return services;
}

void Program::registerCommands()
{
    handlers_.set("NewDb", [this] { database_.New_Database(); });
    handlers_.set("OpenDb", [this] { database_.Open_Database(); });
    handlers_.set("CloseDb", [this] { main_.Close_Database(); });
    handlers_.set("Exit", [this] { main_.leave(); });

    handlers_.set("Tree", [this] { structure_.Hide_TreeBus(); });
    handlers_.set("Expand", [this] { structure_.ExpandCollapse_TreeBusNodes(1); });
    handlers_.set("Collapse", [this] { structure_.ExpandCollapse_TreeBusNodes(0); });
    handlers_.set("Parent", [this] { structure_.Select_Item_ListBus(); });
    handlers_.set("Refresh", [this] { structure_.Refresh_Item(); });
    handlers_.set("View", [this] { structure_.Set_View_ListBus(-1); });
    const QStringList views{"LargeIcon", "SmallIcon", "List", "Report"};
    for (int view = 0; view < views.size(); ++view)
        handlers_.set(views[view], [this, view] { structure_.Set_View_ListBus(view); });

    handlers_.set("Filter", [this] { mainWindow()->listBus()->showFilter(); });
    handlers_.set("Find", [this] { showBeside("frmFind"); });
    handlers_.set("Pending", [this] { showBeside("frmPending"); });

    handlers_.set("TlbComplete", [this] { commands_.Set_View_Toolbar(-1); });
    handlers_.set("TlbReduced", [this] { commands_.Set_View_Toolbar(0); });
    handlers_.set("TlbLargeIcons", [this] { commands_.Set_Form_Icons(-1); });
    handlers_.set("TlbSmallIcons", [this] { commands_.Set_Form_Icons(0); });

    handlers_.set("New", [this] { editor_.New_Item(); });
    handlers_.set("NewNode", [this] { editor_.New_Item(); });
    handlers_.set("Delete", [this] { editor_.Delete_Item(); });
    handlers_.set("DeleteNode", [this] { editor_.Delete_Node(); });

    handlers_.set("Property", [this] { property_.Property_Item(); });
    handlers_.set("PropertyNode", [this] { property_.Property_Node(); });
    handlers_.set("ReadWrite", [this] { console_.ReadWrite_Item(); });
    handlers_.set("ReadWriteNode", [this] { console_.ReadWrite_Node(); });
    handlers_.set("Allarms", [this] { bus_.Delete_Allarms(); });
}

void Program::registerForms()
{
    const auto& [session, texts, op, clock, port] = with_;
    with_.op.registerForm("frmPresentation", [] { return new frmPresentation; });
    with_.op.registerForm("frmVideoProperty", [&] { return new frmVideoProperty(session); });
    with_.op.registerForm("frmLanguage", [&] { return new frmLanguage(session, texts, op); });
    with_.op.registerForm("frmMain", [this] { return makeMainWindow(); });
    with_.op.registerForm("frmMessage", [&] { return new dialogs::frmMessage(session, texts, op); });
    with_.op.registerForm("frmZoom", [&, this] { return new dialogs::frmZoom(session, texts, op, zoom_); });
    with_.op.registerForm("frmZoomDate", [&] { return new dialogs::frmZoomDate(session, clock); });
    with_.op.registerForm("frmProperty",
                          [&, this] { return new property::frmProperty(session, texts, op, property_); });
    with_.op.registerForm("frmPropertyCopy", [&, this] {
        return new property::frmPropertyCopy(
            {session, texts, op, [this](const QString& command) { handlers_.run(command); }, propertyCopy_});
    });
    with_.op.registerForm("frmReadWrite", [&, this] {
        return new console::frmReadWrite({session, texts, op, console_, consoleModel_, panels_});
    });
    with_.op.registerForm("frmConnection", [&] {
        auto* window = new database::frmConnection(session, texts, op);
        connect(&database_, &database::Database::progress, window, &database::frmConnection::showProgress);
        return window;
    });
    with_.op.registerForm("frmFind",
                          [&, this] { return new structure::frmFind(structure_, session, texts, op); });
    with_.op.registerForm("frmPending",
                          [&, this] { return new structure::frmPending(structure_, session, texts, op); });
    with_.op.registerForm("frmReadLogFiles", [&] { return new events::frmReadLogFiles(session, texts, op); });
}

QWidget* Program::makeMainWindow()
{
    auto* window =
        new frmMain({with_.session, with_.texts, with_.op, structure_, panels_, handlers_, commands_, main_});
    with_.op.adoptForm("frmTreeBus", window->treeBus());
    with_.op.adoptForm("frmListBus", window->listBus());
    connect(&database_, &database::Database::captionChanged, window, &QWidget::setWindowTitle);
    connect(window, &frmMain::closed, this, &Program::left);
    connect(window, &frmMain::languageChanged, this, [this] { bus_.relabel(); });
    return window;
}

frmMain* Program::mainWindow() const
{
    return qobject_cast<frmMain*>(with_.op.form("frmMain"));
}

// A window that stays beside the main one while the operator works in either.
void Program::showBeside(const QString& form)
{
    with_.op.showForm(form);
    with_.op.form(form)->activateWindow();
}

void Program::listen()
{
    using structure::Structure;
    connect(&structure_, &Structure::levelLoaded, this, [this](int level) {
        commands_.EnableDisable_MainMenu(level);
        commands_.EnableDisable_TlbMainButtons(level);
    });
    connect(&structure_, &Structure::nodeMenusWanted, this,
            [this] { commands_.EnableDisable_Menu(Place::Tree); });
    connect(&structure_, &Structure::itemMenusWanted, this,
            [this] { commands_.EnableDisable_Menu(Place::List); });
    connect(&structure_, &Structure::viewChanged, this, [this] { commands_.refreshMarks(); });
    connect(&structure_, &Structure::propertyWanted, this, [this] { handlers_.run("Property"); });

    connect(&database_, &database::Database::connected, this, [this] { main_.companyConnected(); });
    // What stands in the two windows is of the company that was open.
    connect(&database_, &database::Database::captionChanged, this, [this] {
        with_.op.unloadForm("frmFind");
        with_.op.unloadForm("frmPending");
    });
    connect(&database_, &database::Database::connectionLost, this, [this] { main_.companyLost(); });

    purge_.onFile = [this](int percent, const QString& shown) {
        if (auto* window = qobject_cast<events::frmReadLogFiles*>(with_.op.form("frmReadLogFiles")))
            window->showFile(percent, shown);
    };
    bus_.onAlarms = [this] {
        if (QWidget* window = mainWindow())
            alarmNotice_.tell(*window);
    };
}

} // namespace session
