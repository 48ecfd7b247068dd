#include "instrument/VirtualInstrument.h"

#include "instrument/AutoLink.h"

#include <algorithm>

namespace instrument {

namespace {

QByteArray digitsOf(const QByteArray& phone)
{
    QByteArray digits;
    std::copy_if(phone.begin(), phone.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

std::unique_ptr<Link> makeLink(LinkMode mode, LinkHost& host, const Timings& timings)
{
    switch (mode) {
    case LinkMode::Modem:
        return std::make_unique<ModemLink>(host, timings);
    case LinkMode::Cable:
        return std::make_unique<CableLink>(host, timings);
    case LinkMode::Auto:
        break;
    }
    return std::make_unique<AutoLink>(host, timings);
}

} // namespace

VirtualInstrument::VirtualInstrument(Plants plants, const Options& options, qint64 startMs)
    : plants_(std::move(plants)), options_(options), link_(makeLink(options.link, *this, options.timings))
{
    for (const Plant& plant : plants_)
        for (const ScheduledCall& call : plant.calls)
            calls_.push_back({startMs + call.afterSeconds * options_.timings.second, call.report});
    std::stable_sort(calls_.begin(), calls_.end(),
                     [](const DueCall& a, const DueCall& b) { return a.atMs < b.atMs; });
}

VirtualInstrument::~VirtualInstrument() = default;

void VirtualInstrument::receive(const QByteArray& bytes, qint64 nowMs)
{
    if (failures_.isActive(Failure::Gone))
        return;
    advance(nowMs);
    statistics_.bytesIn += bytes.size();
    for (const char byte : bytes)
        link_->receive(byte, nowMs);
    advance(nowMs);
}

void VirtualInstrument::advance(qint64 nowMs)
{
    if (failures_.isActive(Failure::Gone))
        return;
    beginDueCall(nowMs);
    link_->advance(nowMs);
    if (!bus_)
        return;
    for (const QByteArray& answer : bus_->advance(nowMs))
        if (link_->isTransparent())
            transmit(answer);
}

std::optional<qint64> VirtualInstrument::nextDue() const
{
    if (failures_.isActive(Failure::Gone))
        return std::nullopt;
    std::optional<qint64> due = link_->nextDue();
    if (bus_)
        due = earlier(due, bus_->nextDue());
    if (!calls_.empty() && link_->isIdle())
        due = earlier(due, calls_.front().atMs);
    return due;
}

void VirtualInstrument::call(const AlarmReport& report, qint64 nowMs)
{
    const auto later =
        std::find_if(calls_.begin(), calls_.end(), [&](const DueCall& due) { return due.atMs > nowMs; });
    calls_.insert(later, {nowMs, report});
}

void VirtualInstrument::beginDueCall(qint64 nowMs)
{
    if (calls_.empty() || calls_.front().atMs > nowMs || !link_->isIdle())
        return;
    const AlarmReport report = calls_.front().report;
    calls_.pop_front();
    link_->call(report, nowMs);
}

void VirtualInstrument::setLinkMode(LinkMode mode)
{
    options_.link = mode;
    bus_.reset();
    link_ = makeLink(mode, *this, options_.timings);
}

std::optional<int> VirtualInstrument::connectedGroup() const
{
    if (!isConnected())
        return std::nullopt;
    return bus_->idGrp();
}

void VirtualInstrument::transmit(const QByteArray& bytes)
{
    statistics_.bytesOut += bytes.size();
    if (send)
        send(bytes);
}

bool VirtualInstrument::open(Plant* plant)
{
    if (!plant)
        return false;
    bus_ = std::make_unique<FieldBus>(*plant, failures_, statistics_, options_.timings);
    note(QStringLiteral("plant %1 on the line").arg(plant->idGrp));
    return true;
}

void VirtualInstrument::closePlant()
{
    bus_.reset();
    note(QStringLiteral("line closed"));
}

QByteArray VirtualInstrument::passOn(char byte, qint64 nowMs)
{
    return bus_->receive(byte, nowMs);
}

void VirtualInstrument::note(const QString& text)
{
    if (log)
        log(text);
}

Plant* VirtualInstrument::plantBehind(const QByteArray& phone)
{
    const QByteArray digits = digitsOf(phone);
    const auto own = std::find_if(plants_.begin(), plants_.end(), [&](const Plant& plant) {
        return !digits.isEmpty() && digitsOf(plant.phone) == digits;
    });
    if (own != plants_.end())
        return &*own;
    if (options_.group)
        return plantOf(*options_.group);
    return plants_.size() == 1 ? &plants_.front() : nullptr;
}

Plant* VirtualInstrument::plantOnCable()
{
    if (options_.group)
        return plantOf(*options_.group);
    return plants_.empty() ? nullptr : &plants_.front();
}

Plant* VirtualInstrument::plantOf(int idGrp)
{
    const auto found = std::find_if(plants_.begin(), plants_.end(),
                                    [&](const Plant& plant) { return plant.idGrp == idGrp; });
    return found == plants_.end() ? nullptr : &*found;
}

} // namespace instrument
