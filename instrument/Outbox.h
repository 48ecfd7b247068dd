#pragma once

#include <QByteArray>
#include <QList>

#include <map>
#include <optional>

namespace instrument {

// Bytes that wait for their moment. Runs that are due at the same moment leave in the order in which they
// were put.
class Outbox
{
public:
    void put(qint64 dueMs, const QByteArray& bytes) { waiting_.emplace(dueMs, bytes); }
    void clear() { waiting_.clear(); }

    std::optional<qint64> nextDue() const;

    // The runs that are due, each as it was put, in order of time.
    QList<QByteArray> takeDue(qint64 nowMs);

private:
    std::multimap<qint64, QByteArray> waiting_;
};

// The earlier of two moments, either of which may never come.
std::optional<qint64> earlier(std::optional<qint64> a, std::optional<qint64> b);

} // namespace instrument
