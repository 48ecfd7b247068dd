#pragma once

#include <QString>

namespace session {

// What a caller of the lookup list fills in, and what comes back.
struct ZoomSettings
{
    QString Caption;    // the window's title
    QString Connection; // connection string to open
    QString Select;     // the query without its conditions
    QString Where;      // a further condition, or ""
    QString OrderBy;    // order field, or ""
    QString GroupBy;    // group field, or ""
    QString KeyField;   // searched for "*"
    QString NameField;  // searched for "@"
    QString Value;      // the typed text, on entry
    QString Result;     // the chosen key, "" after a cancel, or Value unchanged
};

// The program's pick-list: fill ZoomSet, call ShowZoom, read the result.
class Lookup
{
public:
    virtual ~Lookup() = default;

    // A text that ends in "*" or "@" opens the list; any other is taken as it is.
    virtual QString ShowZoom(const QString& Value) = 0;

    ZoomSettings ZoomSet;
};

} // namespace session
