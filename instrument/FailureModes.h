#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace instrument {

enum class Failure
{
    NoAnswer,    // a read stays unanswered
    Late,        // the answer comes later by so many milliseconds
    Short,       // the last byte of the answer is missing
    ByteByByte,  // the answer's bytes come one at a time, so many milliseconds apart
    Trailing,    // so many bytes of rubbish follow the answer
    Wrong,       // every bit of the answer is turned over
    NoCarrier,   // a dialled number gives "NO CARRIER"
    ModemSilent, // a word of the link dialogue stays unanswered
    Gone         // the device has vanished: nothing is heard and nothing is said
};

// The faults that are switched on, each for a number of occasions or for good.
class FailureModes
{
public:
    // `amount` is the failure's milliseconds or bytes where it has any. A count of nothing means for good; a
    // failure switched on again forgets what was left of it.
    void set(Failure failure, qint64 amount, std::optional<int> count = std::nullopt);
    void clear(Failure failure) { active_.erase(failure); }
    void clearAll() { active_.clear(); }

    bool isActive(Failure failure) const { return active_.contains(failure); }

    // Uses up one occasion; the amount when the failure strikes, nothing when it doesn't.
    std::optional<qint64> strike(Failure failure);

    // Names, in the order of the enumeration: "no-answer", "late", "short", "byte-by-byte", "trailing",
    // "wrong", "no-carrier", "modem-silent", "gone".
    static const QStringList& names();
    static std::optional<Failure> fromName(const QString& name);
    static qint64 usualAmount(Failure failure);

    // "late 5000 for 2, wrong for good", or "none".
    QString description() const;

private:
    struct Active
    {
        qint64 amount = 0;
        std::optional<int> left;
    };
    std::map<Failure, Active> active_;
};

} // namespace instrument
