#include "fuzz/Workbench.h"

#include "session/Configuration.h"

#include <QFile>

namespace {

struct Bench : fuzz::Workbench
{
    // Any file is read to its end or reported; what was read can be written, and reads again.
    void run(const QByteArray& input)
    {
        session::Session first;
        first.AppPath = session.AppPath;
        QFile file(first.appFile(QStringLiteral("Calidora.ini")));
        fuzz::require(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(input);
        file.close();
        const bool whole = session::Read_Configuration(first);
        fuzz::require(whole != (failures.take().size() > 0));
        if (whole) {
            session::Session second;
            second.AppPath = first.AppPath;
            fuzz::require(session::Write_Configuration(first));
            fuzz::require(session::Read_Configuration(second));
            fuzz::require(second.COMPort.Port == first.COMPort.Port &&
                          second.LogSet.LogDays == first.LogSet.LogDays);
            fuzz::require(second.Language.Code == first.Language.Code);
        }
        tidy();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    bench.run(fuzz::bytesOf(data, size));
    return 0;
}
