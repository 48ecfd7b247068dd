#include "events/EventViewer.h"

#include "platform/Guard.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/NumberMask.h"

namespace events {

using namespace platform;

namespace {

QString grouped(qint64 number)
{
    return values::formatMask(QString::number(number), QStringLiteral("#,##0"));
}

QDateTime dateTimeOf(Stamp stamp)
{
    return {dateOf(stamp), timeOf(stamp), Qt::UTC};
}

} // namespace

EventViewer::EventViewer(const Surroundings& with)
    : session_(with.session), texts_(with.texts), operator_(with.op)
{
    nextSlice_.setInterval(0);
    connect(&nextSlice_, &QTimer::timeout, this,
            [this] { guarded("Module/Read_Log", [this] { readSlice(); }); });
}

void EventViewer::load(const QDateTime& now)
{
    filter_ = {};
    filter_.Active = booleanText(false);
    txtMinDate_ = txtMaxDate_ = now;
    counts_.reset();
    unread_.clear();
}

void EventViewer::unload()
{
    endLoad();
    list_.setNeedle({});
    list_.setSpan({});
    list_.resetSort();
    list_.clear(session_.CodePage);
}

bool EventViewer::Read_Log()
{
    endLoad();
    return guarded("Module/Read_Log", [this] {
        busy_.emplace(operator_);
        list_.clear(session_.CodePage);
        unread_.clear();
        try {
            relabel();
            load_.emplace(
                LogLoad::Source{session_.appFile(QStringLiteral("Log")), session_.ExeName, session_.CodePage},
                filter_, list_.store());
        } catch (...) {
            endLoad();
            throw;
        }
        nextSlice_.start();
        readSlice();
        return true;
    });
}

// Reads on for a moment. On a failure the load is over, and the list shows what it has.
bool EventViewer::readSlice()
{
    bool more = false;
    try {
        more = load_->step();
    } catch (...) {
        endLoad();
        throw;
    }
    unread_ = load_->unread();
    if (more) {
        list_.grow();
    } else {
        keepResult();
        endLoad();
    }
    emit changed();
    return true;
}

void EventViewer::keepResult()
{
    counts_ = Counts{isFiltered(), load_->shown(), load_->total()};
    if (load_->oldest() == kNoStamp)
        return;
    txtMinDate_ = dateTimeOf(load_->oldest());
    txtMaxDate_ = dateTimeOf(load_->newest());
}

void EventViewer::endLoad()
{
    if (!busy_)
        return;
    nextSlice_.stop();
    if (load_)
        unread_ = load_->unread();
    load_.reset();
    list_.finish();
    busy_.reset();
    emit changed();
}

void EventViewer::Check_List()
{
    setAllChecked(true);
}

void EventViewer::UnCheck_List()
{
    setAllChecked(false);
}

void EventViewer::setAllChecked(bool checked)
{
    const BusyPointer busy(operator_);
    list_.setAllChecked(checked);
}

void EventViewer::Filter_Events()
{
    guarded("frmEventViewer/Filter_Events",
            [this] { operator_.showFormModal(QStringLiteral("frmEventFilter")); });
    emit changed();
}

void EventViewer::All_Events()
{
    filter_.Active = booleanText(false);
    emit changed();
    Read_Log();
}

QString EventViewer::info() const
{
    if (!counts_)
        return {};
    const QString total = grouped(counts_->total);
    if (!counts_->filtered)
        return texts_(247) + QLatin1Char(' ') + total;
    return QStringList{texts_(245), grouped(counts_->shown), texts_(246), total}.join(QLatin1Char(' '));
}

QString EventViewer::narrowed() const
{
    if (isLoading())
        return texts_.own("viewer.reading").arg(grouped(list_.rowCount()));
    return list_.isNarrowed() ? texts_.own("viewer.narrowed").arg(grouped(list_.rowCount())) : QString();
}

QString EventViewer::unread() const
{
    if (unread_.isEmpty())
        return {};
    const QString first = texts_.own("viewer.unread").arg(unread_.first());
    return unread_.size() == 1
               ? first
               : texts_.own("viewer.unread.more").arg(unread_.first()).arg(unread_.size() - 1);
}

void EventViewer::relabel()
{
    list_.setWords({{texts_(240), texts_(241), texts_(242), texts_(243), texts_(244), texts_(103)},
                    {QString(), texts_(213), texts_(214), texts_(215)},
                    {QString(), texts_(225), texts_(226)}});
}

} // namespace events
