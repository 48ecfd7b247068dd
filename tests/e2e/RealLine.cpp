#include "e2e/RealLine.h"

#include <QDir>
#include <QTest>

namespace e2e {

void RecordingPort::Output(const QByteArray& bytes)
{
    if (bytes == "\r" && !exchanges_.empty())
        exchanges_.back().sent += bytes;
    else
        exchanges_.push_back({bytes, {}});
    QtSerialPort::Output(bytes);
}

QByteArray RecordingPort::Input()
{
    const QByteArray bytes = QtSerialPort::Input();
    if (!exchanges_.empty())
        exchanges_.back().reply += bytes;
    return bytes;
}

RealLine::RealLine()
{
    QDir().mkpath(file(QStringLiteral("ports")));
    EXPECT_TRUE(connectPlant());
}

void RealLine::openConsole(const QString& key)
{
    console.load(key);
}

bool RealLine::waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, kPatienceMs);
}

bool RealLine::waitFor(bus::ActionCode code)
{
    return waitUntil([this, code] { return bus.actionCode() == code; });
}

QStringList RealLine::logged()
{
    QStringList lines;
    for (int row = 0; row < model.log().rowCount(); ++row)
        lines << model.log().text(row, 1);
    return lines;
}

} // namespace e2e
