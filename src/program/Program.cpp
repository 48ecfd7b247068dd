#include "program/Program.h"

#include "events/frmReadLogFiles.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/frmMain.h"
#include "session/Configuration.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Jump.h"
#include "structure/PlaceByName.h"
#include "values/Cyrillic.h"

#include <QApplication>

namespace program {

using namespace session;

Program::Program(const Surroundings& surroundings)
    : with_(surroundings), structure_(with_.session, with_.texts, with_.op),
      database_(with_.session, with_.texts, with_.op, structure_),
      safekeeping_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      upgrade_({with_.session, with_.texts, with_.op, with_.clock, database_}),
      safetyCopies_(with_.session, with_.clock), events_(with_.session, with_.op, with_.clock),
      purge_(with_.session, with_.op, with_.clock), consoleModel_(with_.clock),
      events_(with_.session, with_.op, with_.clock), purge_(with_.session, with_.op, with_.clock),
      eventViewer_({with_.session, with_.texts, with_.op, with_.clock, printing_}),
      consoleModel_(with_.clock),
      bus_({with_.session, with_.texts, with_.port, with_.clock, with_.op, events_, panels_, consoleModel_}),
      console_({with_.session, with_.texts, with_.op, with_.clock, structure_, events_, bus_, consoleModel_}),
      zoom_(with_.session, with_.op), editor_({with_.session, with_.texts, with_.op, structure_, zoom_}),
      property_(with_.session, with_.texts, with_.op, structure_),
      propertyCopy_(with_.session, with_.texts, with_.op, structure_, property_),
      printing_(with_.session, with_.texts, with_.op, with_.printers), commands_(with_.session),
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
    connect(&structure_, &Structure::propertyWanted, this, [this] { handlers_.run("Property"); });

    connect(&database_, &database::Database::opened, &safetyCopies_, &database::SafetyCopies::companyOpened);
    connect(&database_, &database::Database::reconnected, this, [this] {
        commands_.EnableDisable_TlbMainButtons(session::kNoSelection);
        commands_.EnableDisable_MainMenu(session::kNoSelection);
    });
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
    bus_.onAlarms = [this] {
        if (QWidget* window = mainWindow())
            alarmNotice_.tell(*window);
    };
}

} // namespace program
