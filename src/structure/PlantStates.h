#pragma once

#include "platform/Operator.h"
#include "session/Forward.h"

#include <QObject>
#include <QString>

namespace structure {

class Structure;

// Synchronising adds the parameters that a grown catalogue has and the instruments lack; resetting declares
// that what the company holds is right, by clearing the marks. Both work on everything below an element.
class PlantStates : public QObject
{
    Q_OBJECT

public:
    // Instruments that share a transaction. A slice takes some tenths of a second; between two the windows
    // paint.
    static constexpr int kSlice = 500;

    PlantStates(session::Session& session, const session::Texts& texts, platform::Operator& op,
                Structure& structure);

    // New rows hold the text "0" and the mark of an addition; rows that are there stay as they are.
    // Instruments are done whole, several to a transaction, so that what breaks off leaves none half done.
    bool Synchronize_Item(const QString& key);

    // The list's selected item.
    void Resync_Item();
    void Reset_Item();
    // The tree's selected node.
    void Resync_Node();
    void Reset_Node();

signals:
    // What a synchronisation of several instruments is at, in words.
    void stepTold(const QString& words);

private:
    void resync(const QString& key);
    void reset(const QString& key);
    int synchronizeAll(const QString& key);
    void tellStep(const QString& instrument, int done, int count, int added);
    bool mayModify() const;
    bool confirmed(platform::Question question);
    void tellDone(const QString& more = {});

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    Structure& structure_;
    int added_ = 0; // parameters of the last synchronisation
};

} // namespace structure
