#pragma once

#include "structure/NodeKey.h"

#include <QHash>
#include <QObject>
#include <map>
#include <optional>

namespace structure {

// A write that the read-back did not confirm. The company's mark is gone all the same: this is what is left.
struct UnconfirmedWrite
{
    QString key; // of the parameter
    QString name, instrument, group;
    std::optional<QString> expected; // as stored; none is a value that isn't known
    std::optional<QString> found;    // none when nobody could read the answer
};

// What the session knows of the instruments beside the company's tables: the value last seen in each
// parameter, and the writes that were not confirmed, until the parameter is read or written again.
class InstrumentMemory : public QObject
{
    Q_OBJECT

public:
    // The instrument holds this value now; the empty text is one that can't be told.
    void see(const QString& IDGrp, const QString& IDInst, const QString& IDPar, const QString& value);
    // The company's value stood as equal to the instrument's before it was changed.
    void keepEqual(const KeyParts& ids, const QString& value);
    void remember(const UnconfirmedWrite& write);
    void forgetBelow(const QString& key); // an element that went away
    // Another company was opened: what is known of each is kept apart.
    void turnTo(const QString& company);

    // None when nobody has seen it in this session.
    std::optional<QString> valueOf(const QString& key) const;
    bool isUnconfirmed(const QString& key) const;
    // By their node keys.
    const std::map<QString, UnconfirmedWrite>& unconfirmed() const { return unconfirmed_; }

signals:
    void changed(); // the unconfirmed writes

private:
    static QString placeOf(const QString& IDGrp, const QString& IDInst, const QString& IDPar);
    static QString placeOf(const QString& key);
    static bool isBelow(const KeyParts& element, const KeyParts& above);

    struct Known
    {
        QHash<QString, QString> seen;
        std::map<QString, UnconfirmedWrite> unconfirmed;
    };

    QString company_;
    QHash<QString, QString> seen_;
    std::map<QString, UnconfirmedWrite> unconfirmed_;
    std::map<QString, Known> others_; // of companies that are not open
};

} // namespace structure
