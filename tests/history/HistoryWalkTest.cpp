// Changes a plant at random, with reads and writes over the line, jobs that are taken back, companies that
// can't be written and companies that are closed now and then. The history played over the plant of the start
// gives the plant of the end.
#include "history/Recorder.h"
#include "platform/Connection.h"
#include "structure/Duplicate.h"
#include "structure/PlantStates.h"
#include "structure/Records.h"
#include "support/BusFixture.h"
#include "support/ReplayedHistory.h"
#include "values/UpdateParam.h"

#include <random>

using namespace support;
using platform::Transaction;

namespace {

// The instrument that can be connected to stays.
const QString kReached = QStringLiteral("1_1");

class HistoryWalk : public BusFixture
{
protected:
    HistoryWalk()
    {
        session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
        bus.setOnChecked([this](const values::CheckedValue& value) { recorder.checked(value); });
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
    // A read or a write of an instrument or a part of it, given up now and then. Who answers remembers the
    // values of a while ago, or babbles.
    void overTheLine()
    {
        const QString IDGrp = anyGroup(), ids = below(4) ? kReached : IDGrp + '_' + anyInstrument(IDGrp);
        const bool babble = below(3) == 0;
        if (babble)
            peer.reset();
        else if (!peer || below(4) == 0)
            plugIn(instrument::LinkMode::Cable);
        openConsole(below(2) ? "2_" + ids : "3_" + ids + (below(2) ? "_G01" : "_G11"));
        if (!model.simulatorPressed())
            console.Set_Simulator(true);
        console.Connect();
        if (babble)
            arrives("ATA");
        waitWhileBusy();
        if (status() == 1) {
            below(2) ? console.Write_Param() : console.Read_Param();
            for (int answers = babble ? below(40) : 0; answers > 0; --answers) {
                clock.run(3000);
                arrives(QByteArray(1, char(below(100))) + '\x06');
            }
            if (babble || below(4) == 0) {
                clock.run(below(40'000));
                bus.abandonOperation();
            }
            waitWhileBusy();
        }
        console.Disconnect();
        if (babble)
            arrives("\r");
        waitWhileBusy();
        console.unload();
        op.unexpected.clear(); // an empty group, a write of nothing, a line that is silent
    }
    void step()
    {
        const bool broken = below(10) == 0;
        session.cnDatabase.Execute(broken ? "PRAGMA query_only=ON;" : "PRAGMA query_only=OFF;");
        const QString IDGrp = anyGroup(), IDInst = anyInstrument(IDGrp);
        try {
            switch (below(13)) {
            case 0:
                records.Add_Record_Db(2, IDGrp, QString::number(records.IDMax_Inst(IDGrp.toInt())),
                                      below(2) ? "KT100" : "KT200", "NEW", "", "10");
                break;
            case 1:
                if (IDGrp + '_' + IDInst != kReached &&
                    column(plantFile(), "SELECT 1 FROM tbInstrumentsUser").size() > 4)
                    records.Remove_Record_Db(
                        below(3) || kReached.startsWith(IDGrp) ? "2_" + IDGrp + '_' + IDInst : "1_" + IDGrp);
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
            case 6:
                overTheLine();
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

    // The notes played over the start give the end.
    void walk(unsigned seed)
    {
        bool told = false;
        const int steps = qEnvironmentVariableIntValue("CALIDORA_WALK_STEPS", &told);
        random_.seed(seed);
        SCOPED_TRACE("seed " + std::to_string(seed));
        const PlantValues start = valuesOf(plantFile());
        for (int i = 0; i < (told ? steps : 1000) && !HasFailure(); ++i)
            step();
        EXPECT_EQ(recorder.failure(), "");
        PlantValues played = start;
        replayHistory(plantFile(), played);
        const PlantValues end = valuesOf(plantFile());
        EXPECT_NE(start, end);
        EXPECT_EQ(played, end);
    }

    history::Recorder recorder{session, clock};
    std::mt19937 random_;
    structure::Records records{session, op, structure};
    structure::Duplicator duplicator{session, op, structure, records, [](const char*) {}};
    structure::PlantStates states{session, texts, op, structure};
};

TEST_F(HistoryWalk, WithAFixedSeed)
{
    walk(1);
    for (const char* cause : {"1", "8", "9", "10"})
        EXPECT_NE(column(history::historyFileOf(plantFile()),
                         QStringLiteral("SELECT Count(*) FROM tbNote WHERE Cause = %1").arg(cause)),
                  QStringList{"0"})
            << cause;
}

TEST_F(HistoryWalk, WithASeedOfItsOwn)
{
    walk(unsigned(std::random_device{}()));
}

} // namespace
