#pragma once

#include "bus/ActionCode.h"
#include "bus/ParTrasm.h"
#include "console/ConsoleStates.h"
#include "platform/Operator.h"

#include <QString>
#include <array>
#include <optional>

namespace line {

// The timers of the bus, in the order in which it makes them.
enum Timer
{
    kAction,
    kTimeOut,
    kConnection,
    kPolling,
    kAlarm,
    kTimers
};

// All that the program shows and holds of the line at one moment, between two events.
struct Picture
{
    session::LineStatus status = session::kLineIdle;
    bus::ActionCode code = bus::ActionCode::Idle;
    std::array<std::optional<qint64>, kTimers> dueIn; // none for a timer that isn't armed
    bool portOpen = true;
    int comSet = 25;
    int allarm = 1;
    QString info;
    bool consoleOpen = false;
    session::LineStatus consoleStatus = session::kLineIdle;
    console::ConsoleStates commands;
    bool progressVisible = false;
    bool simulator = false;
    bool autoDisconnect = false;
    bus::ParTrasm parTrasm;
    bool operating = false;   // an operation has its records open
    bool transaction = false; // in the company's file
    bool recordsOpen = false; // the session's own work
    bool companyOpen = true;
    int company = 0;    // which
    int raisedFor = -1; // the company and the group that the line was raised for
    QString raisedForGroup;
    platform::Pointer pointer = platform::Pointer::Default;
    QByteArray received;  // not yet consumed
    int failureBoxes = 0; // that stand, one in the other
    int questions = 0;
    QString pending; // what is to come in at a moment told before, and what is wrong with the world
    bool failedSinceRest = false; // something went wrong since the line was last at rest
};

// What in the picture doesn't agree with the rest of it; "" when all does.
QString disagreement(const Picture& picture);

// The picture as one word: what is alike in it is explored once.
QString digest(const Picture& picture);

QString nameOf(bus::ActionCode code);

} // namespace line
