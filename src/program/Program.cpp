#include "program/Program.h"

#include "events/frmReadLogFiles.h"
#include "platform/SystemTool.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/frmMain.h"
#include "session/Configuration.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Jump.h"
#include "structure/PlaceByName.h"
#include "users/UserTable.h"
#include "values/Cyrillic.h"
#include "widgets/FormLanguage.h"

#include <QApplication>

namespace program {

using namespace session;

Program::Program(const Surroundings& surroundings)
    : with_(surroundings), structure_(with_.session, with_.texts, with_.op),
      database_(with_.session, with_.texts, with_.op, structure_),
      safekeeping_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      upgrade_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      safetyCopies_(with_.session, with_.clock), events_(with_.session, with_.op, with_.clock),
      purge_(with_.session, with_.op, with_.clock),
      eventViewer_({with_.session, with_.texts, with_.op, with_.clock, printing_}),
      consoleModel_(with_.clock),
      bus_({with_.session, with_.texts, with_.port, with_.clock, with_.op, events_, panels_, consoleModel_}),
      console_({with_.session, with_.texts, with_.op, with_.clock, structure_, events_, bus_, consoleModel_}),
      zoom_(with_.session, with_.op), editor_({with_.session, with_.texts, with_.op, structure_, zoom_,
                                               [this](const QString& key) { property_.open(key); }}),
      clipboard_({with_.session, with_.texts, with_.op, structure_, editor_}),
      states_(with_.session, with_.texts, with_.op, structure_),
      drag_(with_.session, with_.texts, structure_, clipboard_),
      property_(with_.session, with_.texts, with_.op, structure_),
      propertyCopy_(with_.session, with_.texts, with_.op, structure_, property_),
      printing_(with_.session, with_.texts, with_.op, with_.printers),
      export_({with_.session, with_.texts, with_.op, with_.clock, structure_}),
      import_({with_.session, with_.texts, with_.op, structure_}),
      print_({with_.session, with_.texts, with_.op, with_.clock, structure_, printing_}),
      commands_(with_.session),
      main_({with_.session, with_.texts, with_.op, with_.clock, commands_, services()}),
      login_({with_.session, with_.texts, with_.op, loginVerbs()}),
      userEditor_({with_.session, with_.texts, with_.op, zoom_, printing_}),
      settings_({with_.session, with_.texts, with_.op, settingsVerbs()}),
      info_({with_.session, with_.texts, with_.op, machine_, {platform::systemTool, platform::startProgram}}),
      alarmNotice_(with_.session, with_.texts),
      manualKey_([this](const QString& window) { showManual(window); }), habits_(with_.session.AppPath)
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
    services.anotherInstanceRuns = [this] {
        instance_.emplace(with_.session.AppPath);
        return instance_->anotherIsRunning();
    };
    services.folderIsClosed = [this] { return instance_->folderIsClosed(); };
    services.Connect_Database = [this](const QString& path) { return database_.Connect_Database(path); };
    services.Disconnect_Database = [this] { database_.Disconnect_Database(); };
    services.Delete_Log = [this](bool enabled, bool all) { purge_.Delete_Log(enabled, all); };
    services.Set_COMPort = [this] { return bus_.Set_COMPort(); };
    services.Open_COMConnection = [this] { return bus_.Open_COMConnection(); };
    services.Close_COMConnection = [this] { return bus_.Close_COMConnection(); };
    services.makeSureOfAnOperator = [this] { users::makeSureOfAnOperator(with_.session); };
    services.selectAboveRoot = [this] {
        structure_.selectNode(structure::kRootKey);
        structure_.Select_Item_ListBus();
    };
    services.applyTreeMenus = [this] { commands_.EnableDisable_Menu(Place::Tree, structure_.levelOfTree()); };
    services.showCaption = [this] {
        if (frmMain* window = mainWindow())
            window->showCaption();
    };
    services.endProgram = [this] { endProgram(); };
    return services;
}

users::Login::Verbs Program::loginVerbs()
{
    users::Login::Verbs verbs;
    verbs.loggedIn = [this] {
        main_.loggedIn();
        emit structure_.listFocusWanted();
    };
    verbs.Disconnect_Database = [this] { database_.Disconnect_Database(); };
    verbs.companyLost = [this] { main_.companyLost(); };
    verbs.endProgram = [this] { main_.endProgram(); };
    return verbs;
}

dialogs::Settings::Verbs Program::settingsVerbs()
{
    dialogs::Settings::Verbs verbs;
    verbs.Set_COMPort = [this] { return bus_.Set_COMPort(); };
    verbs.Open_COMConnection = [this] { return bus_.Open_COMConnection(); };
    // A line that is up is hung up and its events are kept before the port closes under it.
    verbs.Close_COMConnection = [this] {
        bus_.cutLine();
        return bus_.Close_COMConnection();
    };
    verbs.Write_Configuration = [this] { return Write_Configuration(with_.session); };
    verbs.Delete_Log = [this](bool enabled, bool all) { purge_.Delete_Log(enabled, all); };
    verbs.SetLanguage_AllForms = [this](const QString& identifier) {
        widgets::SetLanguage_AllForms(identifier, with_.op.loadedForms(), with_.session, with_.texts,
                                      with_.op);
    };
    verbs.Connect_Database = [this](const QString& path) { return database_.Connect_Database(path); };
    verbs.Disconnect_Database = [this] { database_.Disconnect_Database(); };
    verbs.companyReloaded = [this] { main_.loggedIn(); };
    verbs.companyLost = [this] { main_.companyLost(); };
    return verbs;
}

// What called while the notice stood waits for the next one.
void Program::acknowledgeAlarms()
{
    const qsizetype shown = alarmCalls_.size();
    bus_.Delete_Allarms();
    if (panels_.picture(bus::Panel::Allarm) == bus::images::kRest)
        alarmCalls_.remove(0, shown);
}

// A line that is up is not left standing: what it brought goes to its log.
void Program::endProgram()
{
    bus_.cutLine();
    if (QWidget* window = mainWindow())
        window->hide();
    emit left();
}

frmMain* Program::mainWindow() const
{
    return qobject_cast<frmMain*>(with_.op.form("frmMain"));
}

void Program::listen()
{
    using structure::Structure;
    connect(&structure_, &Structure::levelLoaded, this, [this](int level) {
        commands_.EnableDisable_MainMenu(level);
        commands_.EnableDisable_TlbMainButtons(level);
    });
    connect(&structure_, &Structure::nodeMenusWanted, this,
            [this] { commands_.EnableDisable_Menu(Place::Tree, structure_.levelOfTree()); });
    connect(&structure_, &Structure::itemMenusWanted, this,
            [this] { commands_.EnableDisable_Menu(Place::List, structure_.levelOfList()); });
    connect(&structure_, &Structure::viewChanged, this, [this] { commands_.refreshMarks(); });
    connect(&structure_, &Structure::propertyWanted, this, [this] {
        if (commands_.menuEnabled(Place::List, "mnuProperty"))
            handlers_.run("Property");
    });
    handlers_.onlyIf([this](const QString& command) {
        return rules::permits(command, Rights::of(with_.session.CurrentUser));
    });

    connect(&database_, &database::Database::opened, &safetyCopies_, &database::SafetyCopies::companyOpened);
    connect(&database_, &database::Database::reconnected, this, [this] {
        commands_.EnableDisable_TlbMainButtons(session::kNoSelection);
        commands_.EnableDisable_MainMenu(session::kNoSelection);
    });
    connect(&database_, &database::Database::companyMade, this,
            [this] { users::Create_Admin_Profile(with_.session); });
    connect(&database_, &database::Database::aboutToDisconnect, this, [this] { bus_.cutLine(); });
    connect(&database_, &database::Database::connected, this, [this] { main_.companyConnected(); });
    // What stands in the two windows is of the company that was open.
    connect(&database_, &database::Database::captionChanged, this, [this] {
        with_.op.unloadForm("frmFind");
        with_.op.unloadForm("frmPending");
    });
    connect(&database_, &database::Database::connectionLost, this, [this] { main_.companyLost(); });

    connect(&eventViewer_, &events::EventViewer::placeWanted, this,
            [this](const QString& equipment, const QString& instrument) {
                const QString key = structure::placeByName(with_.session, equipment, instrument);
                if (!key.isEmpty() && structure::jumpTo(structure_, key))
                    eventViewer_.setPlace(structure_.path() + '\\' + structure_.list().item(key)->text);
            });

    purge_.onFile = [this](int percent, const QString& shown) {
        if (auto* window = qobject_cast<events::frmReadLogFiles*>(with_.op.form("frmReadLogFiles")))
            window->showFile(percent, shown);
    };
    events_.onAlarm = [this](const QDateTime& when, const QString& plant) {
        const QString call = plant + ", " + when.toString("dd/MM/yyyy HH:mm");
        if (!alarmCalls_.contains(call))
            alarmCalls_ << call;
    };
    bus_.onAlarms = [this] {
        if (QWidget* window = mainWindow())
            alarmNotice_.tell(*window, alarmCalls_);
    };
}

} // namespace program
