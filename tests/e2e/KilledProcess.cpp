#include "e2e/KilledProcess.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <iostream>
#include <thread>

namespace {

constexpr int kPatienceMs = 60000;

} // namespace

KilledProcess::KilledProcess()
{
    const QByteArray given = qgetenv("CALIDORA_SEED");
    const unsigned seed = given.isEmpty() ? std::random_device()() : given.toUInt();
    random_.seed(seed);
    std::cout << "seed " << seed << " (CALIDORA_SEED repeats it)\n";
}

QStringList KilledProcess::run(const QString& program, const QStringList& arguments, const QString& folder,
                               const Moment& moment)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", folder);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    const int enough = draw(moment.fewestLines, moment.mostLines);
    QByteArray told;
    while (told.count('\n') < enough && process.waitForReadyRead(kPatienceMs))
        told += process.readAll();
    std::this_thread::sleep_for(std::chrono::microseconds(draw(0, moment.mostMicroseconds)));
    process.kill();
    process.waitForFinished(kPatienceMs);
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit) << "it ended before it could be killed";
    told += process.readAll();
    return QString::fromUtf8(told).split('\n', Qt::SkipEmptyParts);
}
