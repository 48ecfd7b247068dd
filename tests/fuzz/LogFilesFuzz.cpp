#include "fuzz/Workbench.h"

#include "events/Purge.h"

#include <QFile>

namespace {

struct Bench : fuzz::Workbench
{
    Bench()
    {
        QFile readme(file(QStringLiteral("Log/Readme_Log.txt")));
        fuzz::require(readme.open(QIODevice::WriteOnly));
    }

    // The first byte holds the flags. The rest is once the name of a log file for the purge, and once the
    // fields of an event for a log line, which is 378 characters whatever they hold.
    void run(const QByteArray& input)
    {
        const QString text = QString::fromUtf8(input.mid(1));
        purge(text, uchar(input[0]));
        tidy();
        writeLine(text);
        tidy();
    }

private:
    void purge(QString name, uint flags)
    {
        name.replace(QLatin1Char('/'), QLatin1Char('_')).remove(QChar(0));
        QFile log(file(QStringLiteral("Log/") + name.left(80) + QStringLiteral(".log")));
        if (!log.open(QIODevice::WriteOnly))
            return;
        log.close();
        const bool ours = name.left(80).contains(session.ExeName);
        session.LogSet.DelLogInstErr = flags & 1 ? -1 : 0;
        session.LogSet.DelLogRuntimeErr = flags & 2 ? -1 : 0;
        events::LogPurge(session, op, clock).Delete_Log(true, flags & 4);
        fuzz::require(ours || log.exists());
        fuzz::require(QFile::exists(file(QStringLiteral("Log/Readme_Log.txt"))));
    }
    void writeLine(const QString& text)
    {
        const qsizetype third = text.size() / 3;
        eventLog.Add_Event_Db(1, clock.now(), 2, text.left(third), text.mid(third, third),
                              text.mid(2 * third));
        eventLog.CreateLog_App();
        fuzz::require(failures.take().empty());
        const QStringList lines = logLines();
        fuzz::require(lines.size() == 1 && lines[0].size() == 378);
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
