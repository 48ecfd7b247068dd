#pragma once

#include <functional>

struct sqlite3;

namespace platform {

class Connection;

// While it lives the engine calls back again and again from the midst of a long statement, so that a window
// can show that work goes on. The call must neither fail nor touch the connection.
class Heartbeat
{
public:
    Heartbeat(const Connection& connection, std::function<void()> beat);
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

private:
    sqlite3* engine_;
    std::function<void()> beat_;
};

} // namespace platform
