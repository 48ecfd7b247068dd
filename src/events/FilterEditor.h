#pragma once

#include "events/EventFilter.h"

#include <QDateTime>
#include <QObject>

namespace events {

class EventViewer;

// What the controls of frmEventFilter hold.
struct FilterControls
{
    bool chkInfo = true, chkWarning = true, chkError = true;
    int cbxSource = 0;
    QString txtEquipment, txtInstrument;
    int cbxFrom = 0, cbxTo = 0; // 0 no limit, 1 from or up to the date beside it
    QDateTime from, to;

    bool operator==(const FilterControls&) const = default;
};

// The filter being edited. Nothing reaches the list's own before Apply or OK.
class FilterEditor : public QObject
{
    Q_OBJECT

public:
    explicit FilterEditor(EventViewer& viewer);

    // The window comes: the filter in force, else the controls' rest.
    void load();
    // All types, all sources, all time.
    void Clean_Controls();
    // The operator has changed a control. A side without a limit shows the bound of all events.
    void change(const FilterControls& controls);

    void cmdReset();
    void cmdApply();
    void cmdOK();

    const FilterControls& controls() const { return controls_; }
    bool Changed() const { return changed_; }
    bool applyEnabled() const { return applyEnabled_; }
    // No event can lie in a span that ends before it begins.
    bool isEmptySpan() const;

signals:
    void shown(); // the controls hold other values, or are enabled otherwise

private:
    void Save_Settings();
    void takeBounds();

    EventViewer& viewer_;
    FilterControls controls_;
    bool active_ = false;
    bool changed_ = false;
    bool applyEnabled_ = false;
};

} // namespace events
