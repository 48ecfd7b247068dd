#include "events/EventFilter.h"

#include "events/EventLog.h"
#include "platform/CodePage.h"

namespace events {

namespace {

constexpr char kNone[] = "0";

// A side's limit; none while its mode is 0.
std::optional<Stamp> limitOf(const QString& mode, const QString& date, const QString& time)
{
    if (mode.isEmpty() || mode == QLatin1String(kNone))
        return std::nullopt;
    return stampOf(QDate::fromString(date, QStringLiteral("dd/MM/yyyy")),
                   QTime::fromString(time, QStringLiteral("HH:mm:ss")));
}

} // namespace

QString booleanText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

bool isTrue(const QString& booleanText)
{
    return booleanText == QLatin1String("True");
}

LineFilter::LineFilter(const EventFilter& filter, int codePage)
    : active_(isTrue(filter.Active)), info_(isTrue(filter.Info)), warning_(isTrue(filter.Warning)),
      error_(isTrue(filter.Error)), equipment_(fieldOf(filter.Equipment, codePage)),
      instrument_(fieldOf(filter.Instrument, codePage)),
      from_(limitOf(filter.FromMode, filter.FromDate, filter.FromTime)),
      to_(limitOf(filter.ToMode, filter.ToDate, filter.ToTime))
{
    if (!filter.Source.isEmpty() && filter.Source != QLatin1String(kNone))
        source_ = filter.Source.toLatin1();
}

LineFilter::Field LineFilter::fieldOf(const QString& text, int codePage)
{
    const QByteArray bytes = platform::encode(text, codePage);
    return {text.isEmpty(), platform::decode(bytes, codePage) != text, bytes};
}

bool LineFilter::typePasses(int type) const
{
    switch (type) {
    case kInformation:
        return info_;
    case kWarning:
        return warning_;
    case kError:
        return error_;
    default:
        return false;
    }
}

bool LineFilter::Add_Event_EventViewer(const LogLine& line) const
{
    if (!active_)
        return true;
    if (!typePasses(line.type))
        return false;
    if (source_ && line.source != *source_)
        return false;
    if (!equipment_.passes(line.equipment) || !instrument_.passes(line.instrument))
        return false;
    // A line without a date lies in no span of time.
    if ((from_ || to_) && line.when == kNoStamp)
        return false;
    return (!from_ || line.when >= *from_) && (!to_ || line.when <= *to_);
}

} // namespace events
