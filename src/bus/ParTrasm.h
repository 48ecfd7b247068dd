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
    QByteArray AliveFrame;  // the alive poll's whole request, checksum included
    bool Simulator = false; // the direct cable is chosen
    QString ItemKey;        // of the operation that runs
};

} // namespace bus
