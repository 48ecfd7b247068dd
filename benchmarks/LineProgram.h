#pragma once

#include "bus/Bus.h"
#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "database/Database.h"
#include "events/EventLog.h"
#include "platform/MemorySerialPort.h"
#include "platform/ScriptedOperator.h"
#include "platform/VirtualClock.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QTemporaryDir>

// Everything between the database and the line, without windows, on a company made for it and in virtual
// time. A failure ends the process with its words.
class LineProgram
{
    QTemporaryDir folder_; // outlives what works in it

public:
    LineProgram();

    QString companyFile() const { return folder_.filePath(QStringLiteral("Line.mdb")); }
    // Opens the console on an item and raises the link to the group over the cable; `answers` is what the far
    // end has to say to it when nobody lives there.
    void connectOverCable(const QString& key, const QByteArray& answers = {});
    // Lets time pass until nothing is under way on the line.
    void waitWhileBusy();

    session::Session session;
    session::Texts texts{session.Language};
    platform::ScriptedOperator op;
    structure::Structure structure{session, texts, op};
    database::Database database{session, texts, op, structure};
    platform::VirtualClock clock;
    platform::MemorySerialPort port{clock};
    bus::StatusPanels panels;
    console::ConsoleModel model{clock};
    events::EventLog eventLog{session, op, clock};
    bus::Bus bus{{session, texts, port, clock, op, eventLog, panels, model}};
    console::Console console{{session, texts, op, clock, structure, eventLog, bus, model}};
};
