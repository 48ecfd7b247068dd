#include "LineProgram.h"

#include "LineCompany.h"
#include "platform/Guard.h"

#include <QDir>

namespace {

constexpr qint64 kLongest = 24 * 3600 * 1000;

} // namespace

LineProgram::LineProgram()
{
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    QDir(folder_.path()).mkpath(QStringLiteral("Log"));
    lineCompany::make(companyFile());
    session.AppPath = session.DbPath = folder_.path();
    session.DbName = QStringLiteral("Line.mdb");
    session.Language = session::LanguageSettings::fromIdentifier(QStringLiteral("EN_English_2000"));
    if (!database.Connect_Database(session.dbFile()))
        qFatal("no connection to the company");
    bus.Set_COMPort();
    bus.Open_COMConnection();
}

void LineProgram::connectOverCable(const QString& key, const QByteArray& answers)
{
    console.load(key);
    if (!model.simulatorPressed())
        console.Set_Simulator(true);
    console.Connect();
    port.feed(answers);
    clock.settle();
    waitWhileBusy();
    if (session.COMPort.Status != 1)
        qFatal("no link");
}

void LineProgram::waitWhileBusy()
{
    clock.runUntil([this] { return session.COMPort.Status != 2; }, kLongest);
}
