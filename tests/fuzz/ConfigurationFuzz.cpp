#include "fuzz/Require.h"

#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "session/SettingsLines.h"
#include "session/StoredSettings.h"

namespace {

bool take(const QStringList& lines, session::StoredSettings& settings)
{
    try {
        session::takeSettings(lines, settings);
        return true;
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

// Any lines are taken to their end or refused; what was taken stands in lines that give the same when they
// are taken again.
void run(const QByteArray& input)
{
    session::StoredSettings first;
    if (!take(platform::decode(input, 1252).split(u'\n'), first))
        return;
    session::StoredSettings second;
    fuzz::require(take(session::settingsLines(first), second));
    fuzz::require(second == first);
    fuzz::require(second.ListBusSet.View >= -1 && second.ListBusSet.View <= 3);
    fuzz::require(second.COMPort.Port >= 0 && second.COMPort.Port <= 15);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    run(fuzz::bytesOf(data, size));
    return 0;
}
