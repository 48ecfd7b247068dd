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
      marks_(with_.session, structure_), database_(with_.session, with_.texts, with_.op, structure_),
      safekeeping_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      upgrade_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      safetyCopies_(with_.session, with_.clock), recorder_(with_.session, with_.clock),
      events_(with_.session, with_.op, with_.clock), purge_(with_.session, with_.op, with_.clock),
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

Program::~Program()
{
    with_.op.destroyForms();
}

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
    services.valuesWaiting = [this] {
        marks_.refresh();
        return marks_.waiting();
    };
    return services;
}

users::Login::Verbs Program::loginVerbs()
{
    users::Login::Verbs verbs;
    verbs.loggedIn = [this] {
        main_.loggedIn();
        emit structure_.listFocusWanted();
        beginEmptyCompany();
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
    verbs.Close_COMConnection = [this] { return bus_.Close_COMConnection(); };
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

// When the notice has closed, and with it what it holds up.
void Program::showEventsOfAlarms()
{
    QMetaObject::invokeMethod(
        this, [this] { handlers_.run("EventViewer"); }, Qt::QueuedConnection);
}

// A port that went away, or would not open, is tried again; one that is there stays as it is.
void Program::reopenPort()
{
    if (with_.session.COMPort.Status == session::kPortClosed)
        bus_.Open_COMConnection();
}

// The company is connected anew for it, which cuts a line that is open.
void Program::chooseLanguage(const QString& identifier)
{
    const bool other = identifier != with_.session.Language.ID;
    const bool live = with_.session.COMPort.Status > session::kLineIdle;
    if (other && live &&
        with_.op.ask({.text = with_.texts.own("exit.connected"),
                      .more = with_.texts.own("language.cuts"),
                      .title = with_.session.AppTitle,
                      .destroys = true}) != platform::answers::kYes) {
        commands_.refreshMarks();
        return;
    }
    settings_.chooseLanguage(identifier);
    commands_.refreshMarks();
}

// A company without plants has one next step: the root is selected, and the list says how to go on.
void Program::beginEmptyCompany()
{
    if (structure_.tree().nodeCount() != 1)
        return;
    structure_.clickNode(structure::kRootKey);
    if (frmMain* window = mainWindow())
        window->focusPlant();
}

// The main window says which plant the line is on.
QString Program::connectedPlant()
{
    const bool call = bus_.isCallTaken();
    return with_.session.COMPort.Status > session::kLineIdle && !call ? bus_.parTrasm().Name : QString();
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
    bus_.Close_COMConnection();
    if (QWidget* window = mainWindow())
        window->hide();
    emit left();
}

frmMain* Program::mainWindow() const
{
    return qobject_cast<frmMain*>(with_.op.form("frmMain"));
}

// Without a history nobody knows what a read has changed.
void Program::showHistoryFailure()
{
    const bool kept = recorder_.failure().isEmpty();
    consoleModel_.setShowChanges(kept ? [this] { showHistory(console_.chosenKey(), lastRead_); }
                                      : std::function<void()>());
    if (frmMain* window = mainWindow())
        window->showHistory(recorder_.failure());
}

// "GRP1\INST11\States\Mode", as far as it is still there.
QString Program::pathOf(const QString& key)
{
    if (key == structure::kRootKey)
        return structure::kRootCaption;
    const structure::TreeModel& tree = structure_.tree();
    QStringList names;
    for (QString above = key; above != structure::kRootKey && !above.isEmpty();
         above = structure::parentKey(above)) {
        const structure::ListItem* item = structure_.list().item(above);
        names.prepend(tree.contains(above) ? tree.captionOf(above)
                      : item               ? item->text
                                           : structure::Extract_Key(above).IDPar);
    }
    return names.join('\\');
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
    connect(&database_, &database::Database::opened, &recorder_, &history::Recorder::purge);
    connect(&recorder_, &history::Recorder::failureChanged, this, &Program::showHistoryFailure);
    connect(&recorder_, &history::Recorder::operationNoted, this,
            [this](qint64 operation, values::ValueCause purpose, int values) {
                if (purpose != values::ValueCause::Read)
                    return;
                lastRead_ = operation;
                consoleModel_.setChangedValues(values);
            });
    bus_.setOnChecked([this](const values::CheckedValue& value) { recorder_.checked(value); });
    showHistoryFailure();
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
        with_.op.unloadForm("frmHistory");
        with_.op.unloadForm("frmCompare");
    });
    connect(&database_, &database::Database::connectionLost, this, [this] { main_.companyLost(); });

    connect(&eventViewer_, &events::EventViewer::placeWanted, this,
            [this](const QString& equipment, const QString& instrument) {
                const QString key = structure::placeByName(with_.session, equipment, instrument);
                if (!key.isEmpty() && structure::jumpTo(structure_, key))
                    eventViewer_.setPlace(structure_.path() + '\\' + structure_.list().item(key)->text);
            });

    // What the line tells of the instruments is kept for the session.
    connect(&consoleModel_, &console::ConsoleModel::valueWasSeen, this,
            [this](int IDGrp, int IDInst, const QString& IDPar, const QString& value) {
                structure_.memory().see(QString::number(IDGrp), QString::number(IDInst), IDPar, value);
            });
    connect(&consoleModel_, &console::ConsoleModel::checkHasFailed, this,
            [this](const bus::FailedCheck& check) {
                structure_.memory().remember(
                    {check.key, check.parameter, check.instrument, check.group, check.expected, check.found});
            });

    purge_.onFile = [this](int percent, const QString& shown) {
        if (auto* window = qobject_cast<events::frmReadLogFiles*>(with_.op.form("frmReadLogFiles")))
            window->showFile(percent, shown);
    };
    events_.onEvent = [this](int, const QDateTime& when, int source, const QString& plant,
                             const QString& instrument, const QString& text) {
        if (source != events::kAlarms)
            return;
        QStringList place{plant, instrument, text};
        place.removeAll(QString());
        const QString call =
            when.toString("dd/MM/yyyy HH:mm") + "  " + place.join(QStringLiteral(" \u203a "));
        if (!alarmCalls_.contains(call))
            alarmCalls_ << call;
    };
    bus_.onAlarms = [this] {
        if (QWidget* window = mainWindow())
            alarmNotice_.tell(*window, alarmCalls_);
    };
}

} // namespace program
