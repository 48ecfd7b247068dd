#pragma once

#include "bus/AlarmReport.h"
#include "bus/Line.h"

#include <functional>

namespace bus {

// An instrument calls in and delivers a report of alarms in two blocks. They go to the log, and are announced
// until somebody acknowledges them.
class IncomingCall
{
public:
    explicit IncomingCall(Line& line) : line_(line) {}

    // "RING" from a modem, "ATD" from an instrument on the cable.
    void scan();
    void answer();
    void receiveConnect();
    // Something of a block has come: it is over five seconds behind the last of it.
    void awaitSilence();
    void takeFirstBlock();
    void takeSecondBlock();
    bool isTaken() const;
    // The line goes away under the call: what has come of it is stored. True when there is something of it to
    // be announced.
    bool save();
    // Alarms wait for somebody to acknowledge them.
    void announce();

    void beep();
    void acknowledge();
    // Says what the panel "Info" says of a call in the language that is current now.
    void relabel();

    // Called when a report has come in and waits for acknowledgement.
    std::function<void()> onAlarms;

private:
    void begin();
    void leaveConnection();
    void store(AlarmBlock block);

    Line& line_;
    bool endedConnection_ = false; // a connection stood when the call came
    bool stored_ = false;          // something of this call is in the log
    int reports_ = 0;
};

} // namespace bus
