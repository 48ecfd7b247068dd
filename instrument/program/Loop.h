#pragma once

#include "Pty.h"

#include "instrument/Commands.h"

namespace instrument {

// Runs a virtual instrument on a pseudo-terminal: bytes of the line, commands of the standard input, and the
// passing of time. Ends at "quit", SIGTERM or SIGINT. An input that ends leaves the instrument running.
class Loop
{
public:
    // Both must outlive the loop.
    Loop(VirtualInstrument& instrument, Pty& pty);
    ~Loop();

    void run();

    // Milliseconds on a clock that doesn't run backwards.
    static qint64 now();

private:
    void waitForSomething();
    void takeCommands();
    void followDevice();
    int patienceMs() const;

    VirtualInstrument& instrument_;
    Pty& pty_;
    Commands commands_;
    QByteArray input_;
    int signals_ = -1;
    bool inputOpen_ = true;
    bool lineReady_ = false;
    bool inputReady_ = false;
    bool ended_ = false;
};

} // namespace instrument
