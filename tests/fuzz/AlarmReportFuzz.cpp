#include "fuzz/Workbench.h"

#include "bus/AlarmReport.h"
#include "platform/CodePage.h"

namespace {

struct Bench : fuzz::Workbench
{
    // A block gives at least one row or fails in its own procedure, and makes nothing up.
    void run(const QByteArray& input)
    {
        const auto block = input[0] & 1 ? bus::AlarmBlock::Second : bus::AlarmBlock::First;
        const QString text = platform::decode(input.mid(1), 1252);
        bus::Extract_Event_Allarm(text, block, eventLog, clock.now());
        const auto failed = failures.take();
        platform::Recordset rows;
        rows.Open(QStringLiteral("SELECT * FROM tbEvent"), session.cnDatabase);
        fuzz::require(rows.RecordCount() > 0 || failed.size() == 1);
        for (; !rows.Eof(); rows.MoveNext())
            for (const char* field : {"Equipment", "Instrument", "Description"})
                fuzz::require(text.contains(rows.text(QLatin1String(field))));
        tidy();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    if (size > 0)
        bench.run(fuzz::bytesOf(data, size));
    return 0;
}
