#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>

namespace structure {

class Structure;
class UpdateProgress;

// What an instrument type tells about reaching its instruments; "" for what the catalogue lacks.
struct TypeAddresses
{
    QString mBaseAddr;
    QString mAliveParAddr;
};

// Groups and instruments in the database: their numbers, their rows. It touches neither tree nor list.
//
// Each procedure reports its failure under its own name and leaves with false or 0.
class Records
{
public:
    Records(session::Session& session, platform::Operator& op, Structure& structure);

    // The number above the highest in use, from 1 on; 0 after a failure.
    int IDMax_Grp();
    int IDMax_Inst(int IDGrp);

    // The row of a type in rsInstrument, which then stands on it.
    TypeAddresses Search_Instrument(const QString& tag);

    // Adds a group (level 1) or an instrument with all parameters of its type at their defaults (level 2) in
    // one transaction. A type that the catalogue doesn't hold fails.
    bool Add_Record_Db(int level, const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                       const QString& Name, const QString& Description, const QString& PhoneOrAddress);

    // Removes a group or an instrument with all below it in one transaction; nothing for another level.
    bool Remove_Record_Db(const QString& key);

private:
    int nextNumber(const QString& highestSql);
    void run(const QString& sql);
    void addGroup(const QString& IDGrp, const QString& Name, const QString& Description, const QString& Phone,
                  UpdateProgress& progress);
    void addInstrument(const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                       const QString& Name, const QString& Description, const QString& Address,
                       UpdateProgress& progress);
    void requireType(const QString& tag);
    void removeGroup(const QString& IDGrp, UpdateProgress& progress);
    void removeInstrument(const QString& IDGrp, const QString& IDInst, UpdateProgress& progress);

    session::Session& session_;
    platform::Operator& operator_;
    Structure& structure_;
};

} // namespace structure
