#pragma once

#include "instrument/FailureModes.h"
#include "instrument/Plant.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace instrument {

// What a link needs around it: the line on one side, the plants on the other.
class LinkHost
{
public:
    virtual ~LinkHost() = default;

    virtual void transmit(const QByteArray& bytes) = 0;

    // Puts the plant that answers this number on the line. False: nobody answers.
    virtual bool openDialledPlant(const QByteArray& phone) = 0;
    // Puts the plant at the end of the cable on the line. False: there is none.
    virtual bool openCabledPlant() = 0;
    virtual void closePlant() = 0;

    // Hands a byte of the transparent link to the plant; gives back those that belong to no frame.
    virtual QByteArray passOn(char byte, qint64 nowMs) = 0;

    virtual std::optional<qint64> strike(Failure failure) = 0;
    virtual void note(const QString& text) = 0;
};

// One side of the dialogue that raises and closes a connection. Bytes come singly; time is the caller's.
class Link
{
public:
    virtual ~Link() = default;

    virtual void receive(char byte, qint64 nowMs) = 0;
    virtual void advance(qint64 nowMs) = 0;
    virtual std::optional<qint64> nextDue() const = 0;

    // Begins to call in. Only while the link is idle.
    virtual void call(const AlarmReport& report, qint64 nowMs) = 0;

    // Neither connected nor about to be.
    virtual bool isIdle() const = 0;
    // Connected through to a plant: the bytes of the line are the plant's.
    virtual bool isTransparent() const = 0;

    // The connection breaks down without anybody's having asked for it.
    virtual void dropCarrier(qint64 nowMs) = 0;
    // Back to the state in which the link began, without a word.
    virtual void reset() = 0;
};

} // namespace instrument
