#pragma once

#include "platform/Forward.h"

#include <QDate>
#include <QString>

namespace events {

class EventModel;

// What the pages of the printed list tell beside the events.
struct EventPrint
{
    QString title;   // of the list
    QString company; // "" when it has no name
    QDate date;
    QString page; // the word in front of the page's number

    // Prints the checked rows, 45 a page, the last one filled up with empty lines.
    void write(platform::Printer& printer, const EventModel& list) const;

private:
    QStringList head(int page) const;
};

} // namespace events
