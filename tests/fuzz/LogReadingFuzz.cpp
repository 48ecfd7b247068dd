#include "fuzz/Workbench.h"

#include "events/EventModel.h"
#include "events/EventViewer.h"
#include "platform/RecordingPrinters.h"
#include "session/Printing.h"

namespace {

// The first two bytes choose filter and narrowing; the rest is once one log file and, cut in two, two of
// them.
struct Bench : fuzz::Workbench
{
    Bench() { fuzz::require(QDir(session.AppPath).mkpath(QStringLiteral("Log"))); }

    void run(const QByteArray& input)
    {
        const uint choice = uchar(input[0]) << 8 | uchar(input[1]);
        const QByteArray bytes = input.mid(2);
        viewer.load();
        viewer.filter().Active = events::booleanText(choice & 1);
        viewer.filter().Info = viewer.filter().Warning = viewer.filter().Error = events::booleanText(true);
        viewer.filter().Equipment = choice & 2 ? QStringLiteral("P") : QString();
        viewer.filter().ToMode = choice & 4 ? QStringLiteral("1") : QString();
        viewer.filter().ToDate = QStringLiteral("01/01/2026");
        viewer.filter().ToTime = QStringLiteral("00:00:00");
        write(QStringLiteral("Calidora_1.log"), bytes);
        read(choice);
        const int whole = viewer.list().rowCount();
        // Where the files are parted at a line's end, the same events come.
        const qsizetype end = bytes.indexOf('\n', bytes.size() / 2) + 1;
        const bool parted =
            end > 0 && !bytes.startsWith("\xEF\xBB\xBF") && !bytes.mid(end).startsWith("\xEF\xBB\xBF");
        if (parted) {
            write(QStringLiteral("Calidora_1.log"), bytes.left(end));
            write(QStringLiteral("Calidora_2.log"), bytes.mid(end));
            read(choice);
            fuzz::require(viewer.list().rowCount() == whole);
            fuzz::require(QFile::remove(file(QStringLiteral("Log/Calidora_2.log"))));
        }
        viewer.unload();
    }

private:
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile log(file(QStringLiteral("Log/") + name));
        fuzz::require(log.open(QIODevice::WriteOnly) && log.write(bytes) == bytes.size());
    }
    void read(uint choice)
    {
        events::EventModel& list = viewer.list();
        list.setNeedle({});
        list.setSpan({});
        viewer.Read_Log();
        failures.take();
        fuzz::require(!viewer.isLoading());
        list.clickColumn(events::EventColumn(choice >> 3 & 7 ? (choice >> 3 & 7) % 6 : 0));
        for (int row = 0; row < list.rowCount(); ++row) {
            const QStringList cells = list.cells(row);
            fuzz::require(cells.size() == 6 && cells[1].size() <= 19 && cells[3].size() <= 50 &&
                          cells[4].size() <= 50 && cells[5].size() <= 255);
        }
        fuzz::require(list.timeline().isEmpty() || list.timeline().first() <= list.timeline().last());
    }

    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
    events::EventViewer viewer{{session, texts, op, clock, printing}};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    if (size > 2)
        bench.run(fuzz::bytesOf(data, size));
    return 0;
}
