#pragma once

#include <QByteArray>
#include <QString>

namespace bus {

// The connection in use; empty when none exists.
struct ParTrasm
{
    QString IDGrp;
    QString Name;
    QString Phone;
    QByteArray AliveFrame; // the alive poll's whole request, checksum included
    QString Simulator;     // "-1" when the direct cable is chosen, else empty
    QString ItemKey;       // of the operation that runs
};

} // namespace bus
