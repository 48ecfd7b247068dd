#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>
#include <functional>

namespace structure {

class Records;
class Structure;

// Copies of groups and instruments, with all they hold, under a new number.
class Duplicator
{
public:
    enum Kind
    {
        kOfGroup = 0,
        kOfInstrument = 1
    };

    // Told by the name of a text what the copy of a group is at.
    using Tell = std::function<void(const char* words)>;

    Duplicator(session::Session& session, platform::Operator& op, Structure& structure, Records& records,
               Tell tell);

    // The rows come over in one transaction, then the tree shows the copy. A copy of a group takes no target,
    // that of an instrument goes into the target group. False after a failure, which leaves no row behind.
    bool Duplicate_Item(Kind kind, const QString& srcIDGrp, const QString& srcIDInst,
                        const QString& targetIDGrp);

private:
    bool duplicateGroup(const QString& source);
    bool duplicateInstrument(const QString& srcIDGrp, const QString& srcIDInst, const QString& target);
    void requireGroup(const QString& IDGrp);
    void copyOne(const QString& sql);
    void copyAll(const QString& sql);
    void addNodes(int level, const QString& sql);

    session::Session& session_;
    platform::Operator& operator_;
    Structure& structure_;
    Records& records_;
    Tell tell_;
};

} // namespace structure
