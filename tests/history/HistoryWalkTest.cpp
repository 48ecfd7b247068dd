// Changes a plant at random, with jobs that are taken back, companies that can't be written and companies
// that are closed now and then. The history played over the plant of the start gives the plant of the end.
#include "history/HistoryFixture.h"
#include "history/NoteFile.h"
#include "platform/Connection.h"
#include "structure/Duplicate.h"
#include "structure/PlantStates.h"
#include "structure/Records.h"
#include "values/UpdateParam.h"

#include <iostream>
#include <map>
#include <random>

using namespace support;
using platform::Transaction;

namespace {

using Plant = std::map<QString, QString>; // "1/2/P0101" -> "value|state"

class HistoryWalk : public HistoryFixture
{
protected:
    HistoryWalk() { session.cnDatabase.Execute("PRAGMA synchronous=OFF;"); }

    static Plant read(const QString& file)
    {
        Plant plant;
        for (const QString& row : column(
                 file,
                 "SELECT IDGrp || '/' || IDInst || '/' || IDPar || '>' || IfNull(Value, '-') || '|' || State "
                 "FROM tbParametersUser"))
            plant[row.section('>', 0, 0)] = row.section('>', 1);
        return plant;
    }
    // Each note must also tell what stood there before it.
    void play(Plant& plant) const
    {
        for (const QString& row :
             column(history::historyFileOf(plantFile()),
                    "SELECT IDGrp || '/' || IDInst || '/' || IDPar || '>' || IfNull(OldValue, '-') || '|' || "
                    "IfNull(OldState, '') || '>' || IfNull(NewValue, '-') || '|' || IfNull(NewState, '') "
                    "FROM tbNote "
                    "ORDER BY ID")) {
            const QString key = row.section('>', 0, 0), before = row.section('>', 1, 1),
                          after = row.section('>', 2);
            const auto found = plant.find(key);
            ASSERT_EQ(found == plant.end() ? "-|" : found->second, before) << qPrintable(row);
            if (after == "-|")
                plant.erase(key);
            else
                plant[key] = after;
        }
    }

    int below(int end) { return int(random_() % unsigned(end)); }
    QString anyGroup()
    {
        const QStringList groups = column(plantFile(), "SELECT IDGrp FROM tbGroupsUser");
        return groups.isEmpty() ? "1" : groups[below(int(groups.size()))];
    }
    QString anyInstrument(const QString& IDGrp)
    {
        const QStringList all =
            column(plantFile(), "SELECT IDInst FROM tbInstrumentsUser WHERE IDGrp = " + IDGrp);
        return all.isEmpty() ? "1" : all[below(int(all.size()))];
    }
    QString anyParameter()
    {
        static const QStringList ids{"P0101", "p0102", "P0201", "P0204", "P1101", "P1103"};
        return ids[below(int(ids.size()))];
    }

    void change()
    {
        const QString IDGrp = anyGroup(), IDInst = anyInstrument(IDGrp);
        const QString value = QStringList{"", "5", "12.3", "O'Hara", "камера"}[below(5)];
        switch (below(8)) {
        case 0:
            values::Update_Param(session, IDGrp.toInt(), IDInst.toInt(), anyParameter(), value);
            break;
        case 1:
            structure::Restore_Item(session, op, below(4) ? "2_" + IDGrp + '_' + IDInst : QString("Root"));
            break;
        case 2:
            states.Synchronize_Item(below(4) ? "1_" + IDGrp : QString("Root"));
            break;
        case 3:
            session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDInst = " + IDInst +
                                       " AND IDPar = '" + anyParameter() + "';");
            break;
        default:
            session.cnDatabase.Execute("UPDATE tbParametersUser SET Value = '" + QString::number(below(9)) +
                                       "', State = 1 WHERE IDGrp = " + IDGrp + " AND IDPar = '" +
                                       anyParameter() + "';");
        }
    }
    void step()
    {
        const bool broken = below(10) == 0;
        session.cnDatabase.Execute(broken ? "PRAGMA query_only=ON;" : "PRAGMA query_only=OFF;");
        const QString IDGrp = anyGroup(), IDInst = anyInstrument(IDGrp);
        try {
            switch (below(12)) {
            case 0:
                records.Add_Record_Db(2, IDGrp, QString::number(records.IDMax_Inst(IDGrp.toInt())),
                                      below(2) ? "KT100" : "KT200", "NEW", "", "10");
                break;
            case 1:
                if (column(plantFile(), "SELECT 1 FROM tbInstrumentsUser").size() > 4)
                    records.Remove_Record_Db(below(3) ? "2_" + IDGrp + '_' + IDInst : "1_" + IDGrp);
                break;
            case 2:
                if (column(plantFile(), "SELECT 1 FROM tbInstrumentsUser").size() < 12)
                    duplicator.Duplicate_Item(below(2) ? structure::Duplicator::kOfGroup
                                                       : structure::Duplicator::kOfInstrument,
                                              IDGrp, IDInst, anyGroup());
                break;
            case 3: {
                const Transaction givenUp(session.cnDatabase);
                change();
                change();
                break;
            }
            case 4: {
                Transaction job(session.cnDatabase);
                change();
                try {
                    session.cnDatabase.Execute("UPDATE tbParametersUser SET Value = '99', State = CASE WHEN "
                                               "IDPar > 'P02' THEN NULL ELSE 1 "
                                               "END;");
                } catch (const platform::RuntimeError&) {
                    // the rest of the job stands
                }
                change();
                job.commit();
                break;
            }
            case 5:
                if (below(10) == 0) {
                    database.Disconnect_Database();
                    connectPlant();
                    session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
                }
                break;
            default:
                change();
            }
        } catch (const platform::RuntimeError&) {
            // a company that can't be written
        }
        session.cnDatabase.Execute("PRAGMA query_only=OFF;");
        failures.take();
    }

    std::mt19937 random_;
    structure::Records records{session, op, structure};
    structure::Duplicator duplicator{session, op, structure, records, [](const char*) {}};
    structure::PlantStates states{session, texts, op, structure};
};

TEST_F(HistoryWalk, TheNotesPlayedOverTheStartGiveTheEnd)
{
    const int steps = qEnvironmentVariableIntValue("CALIDORA_WALK_STEPS");
    const unsigned seed = unsigned(std::random_device{}());
    random_.seed(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Plant start = read(plantFile());
    for (int i = 0; i < (steps > 0 ? steps : 1500); ++i)
        step();
    EXPECT_EQ(recorder.failure(), "");
    Plant played = start;
    play(played);
    const Plant end = read(plantFile());
    EXPECT_NE(start, end);
    EXPECT_EQ(played, end);
}

} // namespace
