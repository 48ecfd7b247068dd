#pragma once

#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "database/CompanyUpgrade.h"
#include "database/Database.h"
#include "database/Safekeeping.h"
#include "database/SafetyCopies.h"
#include "dialogs/Info.h"
#include "dialogs/Settings.h"
#include "dialogs/Zoom.h"
#include "events/EventLog.h"
#include "events/EventViewer.h"
#include "events/Purge.h"
#include "exchange/Export.h"
#include "exchange/Import.h"
#include "exchange/PlantPrint.h"
#include "history/Recorder.h"
#include "platform/Forward.h"
#include "platform/Machine.h"
#include "platform/SingleInstance.h"
#include "program/AlarmNotice.h"
#include "program/Habits.h"
#include "program/ManualKey.h"
#include "property/PropertyCopy.h"
#include "property/PropertyModel.h"
#include "session/CommandStates.h"
#include "session/Commands.h"
#include "session/Forward.h"
#include "session/Main.h"
#include "session/Printing.h"
#include "structure/PlantClipboard.h"
#include "structure/PlantDrag.h"
#include "structure/PlantEditor.h"
#include "structure/PlantMarks.h"
#include "structure/PlantStates.h"
#include "structure/Structure.h"
#include "users/Login.h"
#include "users/UserEditor.h"

#include <QObject>
#include <optional>

namespace program {

class frmMain;

// The whole program put together: the logic, its commands and its windows. What it lives in is the caller's,
// so that a test gives it a clock, a line and an operator of its own.
class Program : public QObject
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::DesktopOperator& op;
        platform::Clock& clock;
        platform::SerialPort& port;
        platform::Printers& printers;
    };

    explicit Program(const Surroundings& surroundings);
    ~Program() override;

    // The start; false when the process is to end at once.
    bool run() { return main_.run(); }

    session::CommandHandlers& handlers() { return handlers_; }
    session::CommandStates& commands() { return commands_; }
    structure::Structure& structure() { return structure_; }
    events::EventLog& events() { return events_; }
    bus::StatusPanels& panels() { return panels_; }
    database::Database& database() { return database_; }
    bus::Bus& bus() { return bus_; }
    session::Printing& printing() { return printing_; }
    session::Main& main() { return main_; }
    users::Login& login() { return login_; }

signals:
    // The main window has gone.
    void left();

private:
    void registerCommands();
    void registerForms();
    void showBeside(const QString& form);
    void showOver(const QString& form);
    void showHistory(const QString& key, std::optional<qint64> operation = {});
    void showHistoryFailure();
    void showCompare(const QString& key);
    QString pathOf(const QString& key);
    void showManual(const QString& window);
    void listen();
    session::MainServices services();
    users::Login::Verbs loginVerbs();
    dialogs::Settings::Verbs settingsVerbs();
    void endProgram();
    void acknowledgeAlarms();
    QString connectedPlant();
    void reopenPort();
    void chooseLanguage(const QString& identifier);
    void beginEmptyCompany();
    void showEventsOfAlarms();
    QWidget* makeMainWindow();
    frmMain* mainWindow() const;

    Surroundings with_;
    structure::Structure structure_;
    structure::PlantMarks marks_;
    database::Database database_;
    database::Safekeeping safekeeping_;
    database::CompanyUpgrade upgrade_;
    database::SafetyCopies safetyCopies_;
    history::Recorder recorder_;
    std::optional<qint64> lastRead_; // the operation that the last read noted
    events::EventLog events_;
    events::LogPurge purge_;
    events::EventViewer eventViewer_;
    bus::StatusPanels panels_;
    console::ConsoleModel consoleModel_;
    bus::Bus bus_;
    console::Console console_;
    dialogs::Zoom zoom_;
    structure::PlantEditor editor_;
    structure::PlantClipboard clipboard_;
    structure::PlantStates states_;
    structure::PlantDrag drag_;
    property::PropertyModel property_;
    property::PropertyCopy propertyCopy_;
    session::Printing printing_;
    exchange::Export export_;
    exchange::Import import_;
    exchange::PlantPrint print_;
    session::CommandHandlers handlers_;
    session::CommandStates commands_;
    session::Main main_;
    users::Login login_;
    users::UserEditor userEditor_;
    dialogs::Settings settings_;
    platform::Machine machine_;
    dialogs::Info info_;
    AlarmNotice alarmNotice_;
    QStringList alarmCalls_; // the plants that called and wait for an acknowledgement
    ManualKey manualKey_;
    Habits habits_;
    std::optional<platform::SingleInstance> instance_;
};

} // namespace program
