#include "platform/Heartbeat.h"

#include "platform/Connection.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace platform {

namespace {

// Steps of the engine from call to call: a fraction of a millisecond.
constexpr int kSteps = 5000;
constexpr int kGoOn = 0;

} // namespace

Heartbeat::Heartbeat(const Connection& connection, std::function<void()> beat)
    : engine_(connection.database().getHandle()), beat_(std::move(beat))
{
    const auto call = [](void* beat) {
        (*static_cast<std::function<void()>*>(beat))();
        return kGoOn;
    };
    sqlite3_progress_handler(engine_, kSteps, call, &beat_);
}

Heartbeat::~Heartbeat()
{
    sqlite3_progress_handler(engine_, 0, nullptr, nullptr);
}

} // namespace platform
