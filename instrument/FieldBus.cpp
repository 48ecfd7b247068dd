#include "instrument/FieldBus.h"

#include "instrument/Checksum.h"

#include <algorithm>

namespace instrument {

namespace {

constexpr char kAcknowledgement = 0x06;
constexpr char kRubbish = char(0xAA);

} // namespace

FieldBus::FieldBus(Plant& plant, FailureModes& failures, Statistics& statistics, const Timings& timings)
    : plant_(plant), failures_(failures), statistics_(statistics), timings_(timings),
      reader_(plant.commands(), timings.silence)
{
}

QByteArray FieldBus::receive(char byte, qint64 nowMs)
{
    return settle(reader_.receive(QByteArray(1, byte), nowMs), nowMs);
}

QList<QByteArray> FieldBus::advance(qint64 nowMs)
{
    settle(reader_.advance(nowMs), nowMs);
    return answers_.takeDue(nowMs);
}

std::optional<qint64> FieldBus::nextDue() const
{
    return earlier(reader_.nextDue(), answers_.nextDue());
}

QByteArray FieldBus::settle(const Reading& reading, qint64 nowMs)
{
    statistics_.badChecksums += reading.badChecksums;
    statistics_.strayBytes += reading.strayBytes.size();
    for (const Request& request : reading.requests) {
        statistics_.requests.push_back({nowMs, plant_.idGrp, request});
        obey(request, nowMs);
    }
    return reading.strayBytes;
}

void FieldBus::obey(const Request& request, qint64 nowMs)
{
    Memory& memory = plant_.instruments.at(request.address);
    if (request.kind == CommandKind::Write) {
        if (memory.write(request.command, request.memoryAddress, request.data))
            answers_.put(nowMs + timings_.answer, QByteArray(1, kAcknowledgement));
    } else if (const auto bytes = memory.read(request.command, request.memoryAddress, request.length)) {
        answer(*bytes + closingByte(*bytes), nowMs);
    }
}

void FieldBus::answer(QByteArray bytes, qint64 nowMs)
{
    if (failures_.strike(Failure::NoAnswer))
        return;
    if (failures_.strike(Failure::Wrong))
        std::transform(bytes.begin(), bytes.end(), bytes.begin(), [](char byte) { return char(~byte); });
    if (failures_.strike(Failure::Short))
        bytes.chop(1);
    if (const auto count = failures_.strike(Failure::Trailing))
        bytes += QByteArray(*count, kRubbish);

    qint64 dueMs = nowMs + timings_.answer + failures_.strike(Failure::Late).value_or(0);
    const std::optional<qint64> gapMs = failures_.strike(Failure::ByteByByte);
    if (!gapMs) {
        answers_.put(dueMs, bytes);
        return;
    }
    for (const char byte : bytes) {
        answers_.put(dueMs, QByteArray(1, byte));
        dueMs += *gapMs;
    }
}

} // namespace instrument
