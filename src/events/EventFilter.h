#pragma once

#include "events/LogLine.h"

#include <QString>
#include <optional>

namespace events {

// What the list is narrowed to, as texts in the order of the filter's window.
struct EventFilter
{
    QString Active;                // "True": a filter is in force
    QString Info, Warning, Error;  // "True": events of this type are shown
    QString Source;                // 0 all, 1 alarms, 2 read/write
    QString Equipment, Instrument; // "" any
    QString FromMode;              // 0 first event, 1 events from FromDate and FromTime on
    QString FromDate, FromTime;    // "dd/mm/yyyy", "hh:mm:ss"
    QString ToMode;                // 0 last event, 1 events up to ToDate and ToTime
    QString ToDate, ToTime;
};

QString booleanText(bool value);
bool isTrue(const QString& booleanText);

// A filter made ready for the lines of files in one code page.
class LineFilter
{
public:
    LineFilter(const EventFilter& filter, int codePage);

    // Whether the line passes. A filter that isn't active passes every line.
    bool Add_Event_EventViewer(const LogLine& line) const;

private:
    struct Field
    {
        bool any = true;
        bool none = false; // a text that no line of this code page can hold
        QByteArray bytes;

        bool passes(QByteArrayView field) const { return any || (!none && field == bytes); }
    };
    static Field fieldOf(const QString& text, int codePage);
    bool typePasses(int type) const;

    bool active_, info_, warning_, error_;
    std::optional<QByteArray> source_;
    Field equipment_, instrument_;
    std::optional<Stamp> from_, to_;
};

} // namespace events
