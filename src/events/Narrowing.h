#pragma once

#include "events/CaseFold.h"
#include "events/EventColumn.h"
#include "events/EventStore.h"

namespace events {

// The words that an event has to hold in one of its columns to be shown: plain characters, in any case.
class Narrowing
{
public:
    Narrowing(const QString& text, const EventWords& words, const CaseFold& fold, int codePage);

    bool shows(const StoredEvent& event) const;

private:
    bool isIn(QByteArrayView text) const;
    bool isInDate(const StoredEvent& event) const;

    const CaseFold& fold_;
    bool all_;
    bool mayBeDate_;
    QByteArray bytes_, ranks_;
    std::array<bool, 4> types_{};
    std::array<bool, 3> sources_{};
};

} // namespace events
