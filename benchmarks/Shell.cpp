#include "Shell.h"

#include "Measure.h"

#include <QProcess>
#include <algorithm>

namespace {

constexpr int kStarts = 9;

} // namespace

Shell::Shell(const QString& file) : file_(file)
{
    double best = run({});
    for (int start = 1; start < kStarts; ++start)
        best = std::min(best, run({}));
    start_ = best;
}

double Shell::milliseconds(const QStringList& statements) const
{
    return run(statements) - start_;
}

double Shell::run(const QStringList& statements) const
{
    const QByteArray input = ".output /dev/null\n" + statements.join('\n').toUtf8() + "\nSELECT 1;\n";
    return measure::milliseconds([&] {
        QProcess shell;
        shell.start(QStringLiteral("sqlite3"), {file_});
        shell.write(input);
        shell.closeWriteChannel();
        if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
            qFatal("sqlite3: %s", shell.readAllStandardError().constData());
    });
}
