#include "line/LinePort.h"

#include "instrument/Checksum.h"
#include "line/Picture.h"

namespace line {

using bus::ActionCode;

namespace {

const QByteArrayList kSetUp{"AT", "ATZ", "ATE0", "AT&D0", "AT&K0"};

// The words that each code tells, without the frames.
bool tells(ActionCode code, const QByteArray& bytes)
{
    using enum ActionCode;
    const bool cut = bytes == "+++";
    const bool hangUp = cut || bytes == "ATH" || bytes == "\r";
    switch (code) {
    case Idle:
        return cut;
    case SimulatorRaising:
        return bytes == "RING" || bytes == "CONNECT";
    case SimulatorClosing:
    case HangingUp:
        return hangUp;
    case ModemSetup:
        return hangUp || kSetUp.contains(bytes);
    case Dialling:
        return bytes.startsWith("ATD") || bytes == "\r";
    case CallAnswering:
        return bytes == "ATA" || bytes == "\r";
    case FirstBlock:
        return bytes == "CONNECT";
    case SecondBlock:
        return bytes == "OK";
    default:
        return false;
    }
}

bool isTransfer(ActionCode code)
{
    return code >= ActionCode::Reading && code <= ActionCode::Polling;
}

QString readable(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

} // namespace

void LinePort::Output(const QByteArray& bytes)
{
    if (std::exchange(failNext, false))
        platform::fail(platform::errors::kDeviceIo, QStringLiteral("The port takes nothing."));
    if (PortOpen())
        look(code(), bytes);
    MemorySerialPort::Output(bytes);
    forgetSent();
}

void LinePort::look(ActionCode code, const QByteArray& bytes)
{
    if (isTransfer(code))
        lookAtFrame(code, bytes);
    else if (!tells(code, bytes))
        violate(QStringLiteral("%1 is sent in %2").arg(readable(bytes), nameOf(code)));
    if (kSetUp.contains(bytes)) {
        if (lastCommand_ && clock_.elapsed() - *lastCommand_ < bus::intervals::kModemCommand)
            violate("a modem command is sent too early");
    }
    if (bytes == "ATH" && lastSent_ == "+++" && code != ActionCode::SimulatorClosing && lastCommand_ &&
        clock_.elapsed() - *lastCommand_ < 3000)
        violate("the hang-up is sent too early behind the escape");
    if (!isTransfer(code)) {
        lastCommand_ = clock_.elapsed();
        lastFrame_.reset();
    }
    lastSent_ = bytes;
    if (onSent)
        onSent(code, bytes);
}

void LinePort::lookAtFrame(ActionCode code, const QByteArray& bytes)
{
    using enum ActionCode;
    // The last poll of a line that was cut has no frame any more.
    if (code == Polling && bytes.isEmpty())
        return;
    const bool write = code == WritingRam || code == WritingEeprom ||
                       ((code == MergingRam || code == MergingEeprom) && bytes.size() > 6);
    const bool rightSize = bytes.size() == 6 || (write && bytes.size() > 5);
    if (!rightSize || !instrument::sumCloses(bytes))
        return violate(QStringLiteral("%1 is no frame for %2").arg(readable(bytes), nameOf(code)));
    if (code == Polling && bytes != aliveFrame())
        violate("the poll is not that of the connection");
    if (lastFrame_ && clock_.elapsed() - *lastFrame_ < bus::intervals::kFrame)
        violate(
            QStringLiteral("a frame is sent %1 ms behind the last one").arg(clock_.elapsed() - *lastFrame_));
    lastFrame_ = clock_.elapsed();
    if (write)
        return;
    // Two requests of one pass: something came in between.
    if (code != Polling && code == codeOfRequest_ && arrivals_ == arrivalsAtRequest_)
        violate("a request is sent while the last one waits for its answer");
    codeOfRequest_ = code;
    arrivalsAtRequest_ = arrivals_;
    ++requests_;
    formerSize_ = std::exchange(requestSize_, int(uchar(bytes[4])));
}

QByteArray LinePort::Input()
{
    const QByteArray bytes = MemorySerialPort::Input();
    heldTags_.resize(std::min(heldTags_.size(), std::size_t(received().size())));
    heldTags_.insert(heldTags_.end(), waitingTags_.begin(), waitingTags_.end());
    waitingTags_.clear();
    held_ = received() + bytes;
    return bytes;
}

void LinePort::setPortOpen(bool open)
{
    MemorySerialPort::setPortOpen(open);
    waitingTags_.clear();
    lastFrame_.reset();
    codeOfRequest_ = ActionCode::Idle;
}

void LinePort::comes(const QByteArray& bytes)
{
    if (!PortOpen())
        return;
    ++arrivals_;
    if (onComes)
        onComes(bytes);
    waitingTags_.insert(waitingTags_.end(), std::size_t(bytes.size()), requests_);
    feed(bytes);
}

void LinePort::gone()
{
    if (!PortOpen())
        return;
    waitingTags_.clear();
    lastFrame_.reset();
    codeOfRequest_ = ActionCode::Idle;
    vanish();
}

bool LinePort::isOwnAnswer(int bytes) const
{
    if (int(heldTags_.size()) < bytes)
        return false;
    return std::all_of(heldTags_.begin(), heldTags_.begin() + bytes,
                       [this](int tag) { return tag == requests_; });
}

} // namespace line
