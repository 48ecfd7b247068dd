#pragma once

#include "bus/Line.h"

namespace bus {

// The serial port as the operator chose it: its settings, its opening and closing.
class ComPort
{
public:
    explicit ComPort(Line& line) : line_(line) {}

    // Applies COMPort to the port and shows it. False after any failure, also for settings that the port
    // refuses.
    bool Set_COMPort();
    // Opens the port; true when it is open afterwards. A failure shows its box and sets Status -1.
    bool Open_COMConnection();
    bool Close_COMConnection();
    // The device went away under the open port.
    void lost() { lost_ = true; }
    // Tries a port once more that went away or would not open. It is told nowhere when it fails.
    void tryLost();

private:
    bool failedToOpen(const platform::RuntimeError& error);
    void opened();

    Line& line_;
    bool lost_ = false;
};

} // namespace bus
