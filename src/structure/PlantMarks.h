#pragma once

#include "session/Forward.h"
#include "structure/Mark.h"

#include <QObject>
#include <QTimer>

namespace structure {

class InstrumentMemory;
class Structure;

// Keeps the marks of tree and list, and the number of values that wait to be written, in step with the open
// company, whoever changes it.
class PlantMarks : public QObject
{
    Q_OBJECT

public:
    PlantMarks(const session::Session& session, Structure& structure);

    // Values of the whole company that are changed here and not yet written.
    int waiting() const { return waiting_; }
    int unconfirmed() const;

    // Looks at the company when something in it has changed since the last look.
    void refresh();

signals:
    void changed();

private:
    void read();
    void show();
    void markAbove(Marks& marks, const QString& key, int mark) const;

    const session::Session& session_;
    Structure& structure_;
    QTimer look_;
    QString company_;
    qint64 seenChanges_ = -1;
    Marks holders_; // parameter groups that hold changes
    int waiting_ = 0;
};

} // namespace structure
