#include "events/FilterEditor.h"

#include "events/EventViewer.h"

namespace events {

namespace {

const QString kDate = QStringLiteral("dd/MM/yyyy");
const QString kTime = QStringLiteral("HH:mm:ss");
constexpr int kLimited = 1;

QDateTime dateTimeOf(const QString& date, const QString& time)
{
    return {QDate::fromString(date, kDate), QTime::fromString(time, kTime), Qt::UTC};
}

} // namespace

FilterEditor::FilterEditor(EventViewer& viewer) : viewer_(viewer) {}

void FilterEditor::load()
{
    const EventFilter& filter = viewer_.filter();
    if (!viewer_.isFiltered()) {
        Clean_Controls();
    } else {
        controls_ = {isTrue(filter.Info),
                     isTrue(filter.Warning),
                     isTrue(filter.Error),
                     filter.Source.toInt(),
                     filter.Equipment,
                     filter.Instrument,
                     filter.FromMode.toInt(),
                     filter.ToMode.toInt(),
                     dateTimeOf(filter.FromDate, filter.FromTime),
                     dateTimeOf(filter.ToDate, filter.ToTime)};
        active_ = true;
        takeBounds();
    }
    changed_ = applyEnabled_ = false;
    emit shown();
}

void FilterEditor::Clean_Controls()
{
    controls_ = {};
    takeBounds();
    active_ = false;
}

void FilterEditor::takeBounds()
{
    if (controls_.cbxFrom != kLimited)
        controls_.from = viewer_.txtMinDate();
    if (controls_.cbxTo != kLimited)
        controls_.to = viewer_.txtMaxDate();
}

void FilterEditor::change(const FilterControls& controls)
{
    if (controls == controls_)
        return;
    controls_ = controls;
    takeBounds();
    active_ = changed_ = applyEnabled_ = true;
    emit shown();
}

void FilterEditor::cmdReset()
{
    Clean_Controls();
    changed_ = applyEnabled_ = true;
    emit shown();
}

void FilterEditor::cmdApply()
{
    cmdOK();
    changed_ = applyEnabled_ = false;
    emit shown();
}

void FilterEditor::cmdOK()
{
    if (!changed_)
        return;
    Save_Settings();
    viewer_.Read_Log();
}

void FilterEditor::Save_Settings()
{
    viewer_.filter() = {booleanText(active_),
                        booleanText(controls_.chkInfo),
                        booleanText(controls_.chkWarning),
                        booleanText(controls_.chkError),
                        QString::number(controls_.cbxSource),
                        controls_.txtEquipment,
                        controls_.txtInstrument,
                        QString::number(controls_.cbxFrom),
                        controls_.from.toString(kDate),
                        controls_.from.toString(kTime),
                        QString::number(controls_.cbxTo),
                        controls_.to.toString(kDate),
                        controls_.to.toString(kTime)};
}

bool FilterEditor::isEmptySpan() const
{
    return controls_.cbxFrom == kLimited && controls_.cbxTo == kLimited && controls_.from > controls_.to;
}

} // namespace events
