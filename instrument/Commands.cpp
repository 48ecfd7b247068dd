#include "instrument/Commands.h"

#include "instrument/LineText.h"
#include "instrument/LoadError.h"
#include "instrument/MemoryFile.h"

#include <QRegularExpression>

namespace instrument {

namespace {

QString error(const QString& reason)
{
    return QStringLiteral("error ") + reason;
}

QString ok(const QString& text = {})
{
    return (QStringLiteral("ok ") + text).trimmed();
}

std::optional<int> numberOf(const QString& word, int low, int high)
{
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (!isNumber || number < low || number > high)
        return std::nullopt;
    return number;
}

} // namespace

QString Commands::execute(const QString& line, qint64 nowMs)
{
    const QStringList words = line.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    const QString verb = words.value(0);
    const QString rest = line.trimmed().mid(verb.size()).trimmed();
    if (verb == QLatin1String("fail"))
        return fail(words);
    if (verb == QLatin1String("call"))
        return call(rest, nowMs);
    if (verb == QLatin1String("link"))
        return link(words);
    if (verb == QLatin1String("peek"))
        return peek(words);
    if (verb == QLatin1String("poke"))
        return poke(words);
    if (verb == QLatin1String("save"))
        return save(rest);
    if (verb == QLatin1String("status"))
        return status();
    if (verb == QLatin1String("hangup")) {
        instrument_.dropCarrier(nowMs);
        return ok();
    }
    if (verb == QLatin1String("quit")) {
        quitAsked_ = true;
        return ok();
    }
    return error(QStringLiteral("there is no command \"%1\"").arg(verb));
}

QString Commands::fail(const QStringList& words)
{
    FailureModes& failures = instrument_.failures();
    const QString name = words.value(1);
    if (name == QLatin1String("none")) {
        failures.clearAll();
        return ok();
    }
    const std::optional<Failure> failure = FailureModes::fromName(name);
    if (!failure)
        return error(QStringLiteral("there is no failure \"%1\"; there are %2")
                         .arg(name, FailureModes::names().join(QStringLiteral(", "))));
    if (words.value(2) == QLatin1String("off")) {
        failures.clear(*failure);
        return ok();
    }

    QList<int> numbers;
    for (const QString& word : words.mid(2)) {
        const std::optional<int> number = numberOf(word, 0, 3600000);
        if (!number)
            return error(QStringLiteral("\"%1\" is no number").arg(word));
        numbers += *number;
    }
    qint64 amount = FailureModes::usualAmount(*failure);
    if (amount != 0 && !numbers.isEmpty())
        amount = numbers.takeFirst();
    if (numbers.size() > 1)
        return error(QStringLiteral("too many numbers"));
    failures.set(*failure, amount, numbers.isEmpty() ? std::nullopt : std::optional<int>(numbers.front()));
    return ok(failures.description());
}

QString Commands::call(const QString& text, qint64 nowMs)
{
    // A number in front of the blocks is the delay of each.
    const QString first = text.section(QLatin1Char(' '), 0, 0);
    const std::optional<int> delay = numberOf(first, 0, 3600000);
    const QString blocks = delay ? text.mid(first.size()).trimmed() : text;
    AlarmReport report =
        reportFromText(blocks.isEmpty() ? QStringLiteral("<Plant 1><Unit 1><High temperature>") : blocks);
    report.blockDelay = delay;
    instrument_.call(report, nowMs);
    return ok();
}

QString Commands::link(const QStringList& words)
{
    const std::optional<LinkMode> mode = linkModeFromName(words.value(1));
    if (!mode)
        return error(QStringLiteral("a link is auto, modem or cable"));
    instrument_.setLinkMode(*mode);
    return ok();
}

QString Commands::peek(const QStringList& words)
{
    const Memory* memory = memoryOf(words.value(1), words.value(2));
    if (!memory)
        return error(QStringLiteral("there is no such instrument"));
    const auto command = numberOf(words.value(3), 0, 255);
    const auto from = numberOf(words.value(4), 0, 255);
    const auto count = numberOf(words.value(5), 1, 256);
    if (!command || !from || !count)
        return error(QStringLiteral("peek <group> <address> <read command> <from> <count>"));
    const auto bytes = memory->read(quint8(*command), *from, *count);
    return bytes ? ok(QString::fromLatin1(bytes->toHex(' ').toUpper()))
                 : error(QStringLiteral("no bank is there"));
}

QString Commands::poke(const QStringList& words)
{
    Memory* memory = memoryOf(words.value(1), words.value(2));
    if (!memory)
        return error(QStringLiteral("there is no such instrument"));
    const auto command = numberOf(words.value(3), 0, 255);
    const auto from = numberOf(words.value(4), 0, 255);
    const QByteArray digits = words.mid(5).join(QString()).toLatin1();
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (!command || !from || bytes.isEmpty() || bytes.size() * 2 != digits.size())
        return error(QStringLiteral("poke <group> <address> <read command> <from> <hex bytes>"));
    return memory->set(quint8(*command), *from, bytes) ? ok() : error(QStringLiteral("no bank is there"));
}

QString Commands::save(const QString& path)
{
    try {
        saveMemoryFile(instrument_.plants(), path);
        return ok();
    } catch (const LoadError& failure) {
        return error(QString::fromUtf8(failure.what()));
    }
}

QString Commands::status() const
{
    const Statistics& seen = instrument_.statistics();
    const std::optional<int> group = instrument_.connectedGroup();
    const std::optional<qint64> gap = seen.shortestGapMs();
    return ok(QStringLiteral("group=%1 requests=%2 writes=%3 bad=%4 stray=%5 gap=%6 in=%7 out=%8 failures=%9")
                  .arg(group ? QString::number(*group) : QStringLiteral("-"))
                  .arg(seen.requests.size())
                  .arg(seen.writes().size())
                  .arg(seen.badChecksums)
                  .arg(seen.strayBytes)
                  .arg(gap ? QString::number(*gap) : QStringLiteral("-"))
                  .arg(seen.bytesIn)
                  .arg(seen.bytesOut)
                  .arg(instrument_.failures().description()));
}

Memory* Commands::memoryOf(const QString& group, const QString& address)
{
    for (Plant& plant : instrument_.plants()) {
        if (QString::number(plant.idGrp) != group)
            continue;
        const auto found = plant.instruments.find(address.toLatin1());
        return found == plant.instruments.end() ? nullptr : &found->second;
    }
    return nullptr;
}

std::optional<LinkMode> linkModeFromName(const QString& name)
{
    if (name == QLatin1String("auto"))
        return LinkMode::Auto;
    if (name == QLatin1String("modem"))
        return LinkMode::Modem;
    if (name == QLatin1String("cable"))
        return LinkMode::Cable;
    return std::nullopt;
}

} // namespace instrument
