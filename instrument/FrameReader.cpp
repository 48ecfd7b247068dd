#include "instrument/FrameReader.h"

#include "instrument/Checksum.h"

#include <algorithm>

namespace instrument {

namespace {

constexpr qsizetype kOpeningSize = 3;
constexpr qsizetype kHeaderSize = 5;
constexpr qsizetype kFrameSizeWithoutData = kHeaderSize + 1;

} // namespace

FrameReader::FrameReader(CommandSet commands, qint64 silenceMs)
    : commands_(std::move(commands)), silenceMs_(silenceMs)
{
}

Reading FrameReader::receive(const QByteArray& bytes, qint64 nowMs)
{
    Reading reading = advance(nowMs);
    pending_ += bytes;
    lastByteMs_ = nowMs;
    scan(Line::Open, reading);
    return reading;
}

Reading FrameReader::advance(qint64 nowMs)
{
    Reading reading;
    if (!pending_.isEmpty() && nowMs >= lastByteMs_ + silenceMs_)
        scan(Line::Silent, reading);
    return reading;
}

std::optional<qint64> FrameReader::nextDue() const
{
    if (pending_.isEmpty())
        return std::nullopt;
    return lastByteMs_ + silenceMs_;
}

void FrameReader::clear()
{
    pending_.clear();
}

void FrameReader::scan(Line line, Reading& reading)
{
    while (!pending_.isEmpty() && readFrame(line, reading)) {
    }
}

// Takes one step at the head of the bytes at hand; false when only further bytes can tell.
bool FrameReader::readFrame(Line line, Reading& reading)
{
    const bool moreMayCome = line == Line::Open;
    if (pending_.size() < kOpeningSize) {
        if (moreMayCome && commands_.mayOpen(pending_))
            return false;
        letGoOne(reading);
        return true;
    }

    const CommandKind kind = commands_.kindOf(pending_.first(kOpeningSize));
    if (kind == CommandKind::Unknown) {
        letGoOne(reading);
        return true;
    }

    qsizetype size = kFrameSizeWithoutData;
    if (kind == CommandKind::Write && pending_.size() >= kHeaderSize)
        size += quint8(pending_[kHeaderSize - 1]);
    if (pending_.size() < size) {
        if (moreMayCome)
            return false;
        size = pending_.size();
    }

    if (size >= kFrameSizeWithoutData && sumCloses(QByteArrayView(pending_).first(size))) {
        take(kind, size, reading);
        return true;
    }
    ++reading.badChecksums;
    letGoOne(reading);
    return true;
}

void FrameReader::letGoOne(Reading& reading)
{
    reading.strayBytes += pending_.front();
    pending_.remove(0, 1);
}

void FrameReader::take(CommandKind kind, qsizetype size, Reading& reading)
{
    Request request;
    request.address = pending_.first(2);
    request.kind = kind;
    request.command = quint8(pending_[2]);
    request.memoryAddress = quint8(pending_[3]);
    request.length = quint8(pending_[4]);
    request.data = pending_.mid(kHeaderSize, size - kFrameSizeWithoutData);
    reading.requests += request;
    pending_.remove(0, size);
}

} // namespace instrument
