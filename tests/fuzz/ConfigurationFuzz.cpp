#include "fuzz/Require.h"

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "session/Session.h"
#include "session/SettingsLines.h"

namespace {

bool take(const QStringList& lines, session::Session& session)
{
    try {
        session::takeSettings(lines, session);
        return true;
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

// Any lines are taken to their end or refused; what was taken stands in lines that are taken again, and these
// say the same.
void run(const QByteArray& input)
{
    session::Session first;
    if (!take(platform::decode(input, 1252).split(u'\n'), first))
        return;
    const QStringList lines = session::settingsLines(first);
    session::Session second;
    fuzz::require(take(lines, second));
    fuzz::require(session::settingsLines(second) == lines);
    fuzz::require(second.ListBusSet.View >= -1 && second.ListBusSet.View <= 3);
    fuzz::require(second.COMPort.Port >= 0 && second.COMPort.Port <= 15);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    run(fuzz::bytesOf(data, size));
    return 0;
}
