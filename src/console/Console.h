#pragma once

#include "bus/Forward.h"
#include "console/ConsoleModel.h"
#include "events/Forward.h"
#include "platform/Forward.h"
#include "platform/Guard.h"
#include "session/Forward.h"
#include "structure/Forward.h"
#include "structure/NodeKey.h"

#include <QString>
#include <functional>

namespace console {

// The commands of the console: it connects to the group of the item that it was opened on, starts reads and
// writes, and disconnects. The connection belongs to the bus; the console only steers it.
class Console
{
public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        platform::Clock& clock;
        structure::Structure& structure;
        events::EventLog& events;
        bus::Bus& bus;
        ConsoleModel& model;
    };

    explicit Console(const Surroundings& surroundings);

    // Open the window on the selected item of the list, or on the selected node of the tree.
    void ReadWrite_Item();
    void ReadWrite_Node();

    // The item that the window is to be opened on.
    const QString& chosenKey() const { return key_; }
    // The window loads and unloads.
    void load(const QString& key);
    void unload();
    // Whether the window may be closed by its own close box.
    bool mayClose() const;

    void Connect();
    void Disconnect();
    void Set_Simulator(bool toggle);
    void Set_AutoDisconnect();
    void Read_Param();
    void Write_Param();
    // Rebuilds the list from what the connection has logged so far.
    bool Read_Events();
    // Escape in the list.
    void interrupt();

    // Two empty texts when there is no such group.
    void Search_Group(int IDGrp, QString& Name, QString& Phone);
    // The alive poll of the group's master without its checksum; empty when the group can't be reached.
    QByteArray Search_AliveParGrp(int IDGrp);

    // What goes on, as the line of activity tells it.
    Situation situation();
    // The console stands on one group and the line is on another.
    bool lineIsElsewhere() const;
    // Values below the item that are changed here and not yet written: a read replaces them.
    int unwritten();
    // The operation is over: says how many of them a read has replaced.
    void tellReplaced();
    // The line has come to rest: the choice of the cable stands as the button shows it.
    void keepSimulator();
    // A failed check as the panel tells it.
    QString failedCheckWords(const ConsoleModel::Failed& failed) const;
    // Shows a parameter in the plant; the console stays.
    void showParameter(const QString& key);

    // The name of the group that the console stands on.
    QString groupName();
    // Where it stands below that: "CELLA CARNE › Fans"; empty on the group itself.
    QString itemPath() const;

private:
    // Runs a command on the line; what fails in it is told when its work is done, as nothing may come in
    // between.
    void work(const char* procedure, const std::function<void()>& command);
    void openOn(const QString& key, const char* procedure);
    bool otherGroupConnected();
    void annotate(const QString& IDPar, const QString& value);
    void sayConnected();
    void sayTooLate();
    void refuse(const QString& message);

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    platform::Clock& clock_;
    structure::Structure& structure_;
    events::EventLog& events_;
    bus::Bus& bus_;
    ConsoleModel& model_;
    platform::FailureQueue failures_;
    QString key_;
    structure::KeyParts item_; // its parts
    QString group_, phone_;    // of the group that it stands on
    int unwrittenBefore_ = 0;  // when the read began
};

} // namespace console
