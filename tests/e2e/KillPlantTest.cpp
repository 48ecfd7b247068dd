// A process that is killed while it changes the plant: every element is there whole or not at all, and one
// that was being moved is never lost.
#include "e2e/KilledProcess.h"
#include "structure/PlantStates.h"
#include "support/CompanyFixture.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <iostream>
#include <set>

using namespace support;

namespace {

constexpr int kInstruments = 700; // of the group that is worked on
constexpr int kParameters = 14;   // of an instrument

constexpr int kMostLines = 40;
constexpr int kMostMicroseconds = 40000;

int killsWanted()
{
    const QByteArray given = qgetenv("CALIDORA_KILLS");
    return given.isEmpty() ? 25 : given.toInt();
}

class KillPlant : public CompanyFixture, public testing::WithParamInterface<const char*>
{
protected:
    QStringList workAndKill(const QString& folder)
    {
        return process_.run(QStringLiteral(CALIDORA_PLANTER), {GetParam()}, folder,
                            {2, kMostLines, kMostMicroseconds});
    }

    int number(const QString& sql) const { return column(company, sql).value(0).toInt(); }
    int count(const QString& rows) const { return number("SELECT Count(*) FROM " + rows); }

    // The program opens the file, and with it takes back what was begun and not completed.
    void expectOpens()
    {
        session.DbPath = QFileInfo(company).absolutePath();
        ASSERT_TRUE(connectTo(QFileInfo(company).fileName()));
        EXPECT_EQ(structure.tree().rowCount(structure.tree().indexOf("Root")), count("tbGroupsUser"));
        database.Disconnect_Database();
        EXPECT_EQ(column(company, "PRAGMA integrity_check"), QStringList{"ok"});
        EXPECT_EQ(column(company, "PRAGMA foreign_key_check"), QStringList());
    }

    // No instrument without all its parameters, none without its group, and each with its own values.
    void expectWhole()
    {
        EXPECT_EQ(
            column(company, QStringLiteral("SELECT i.IDGrp || '.' || i.IDInst || ' has ' || Count(p.IDPar) "
                                           "FROM tbInstrumentsUser i LEFT JOIN tbParametersUser p "
                                           "ON i.IDGrp = p.IDGrp AND i.IDInst = p.IDInst "
                                           "GROUP BY i.IDGrp, i.IDInst HAVING Count(p.IDPar) <> %1")
                                .arg(kParameters)),
            QStringList());
        EXPECT_EQ(count("tbInstrumentsUser i INNER JOIN tbParametersUser p ON i.IDGrp = p.IDGrp AND "
                        "i.IDInst = p.IDInst WHERE p.Value NOT LIKE 'V' || Substr(i.Name, 5) || '.' || "
                        "p.IDPar || '0%'"),
                  0);
        EXPECT_EQ(number("SELECT Count(DISTINCT Name) FROM tbInstrumentsUser"), kInstruments);
        EXPECT_EQ(count("tbParametersUser"), kParameters * count("tbInstrumentsUser"));
    }

    // A group is made and deleted with all its instruments, whatever is told of it.
    void expectGroups(const QStringList& told)
    {
        static const QRegularExpression kGroupMade("^= duplicate 1_"), kGroupGone("^= delete 1_"),
            kInstrumentMade("^= duplicate 2_");
        const int copies = int(told.filter(kGroupMade).size() - told.filter(kGroupGone).size());
        const int groups = count("tbGroupsUser WHERE Name = 'MANY'") - 1;
        const int begun = underWay(told).startsWith("duplicate 1_") ? 1
                          : underWay(told).startsWith("delete 1_")  ? -1
                                                                    : 0;
        EXPECT_THAT(groups, testing::AnyOf(copies, copies + begun));
        EXPECT_EQ(count("tbInstrumentsUser WHERE IDGrp = 1"), kInstruments);
        for (const QString& size :
             column(company, "SELECT Count(*) FROM tbInstrumentsUser WHERE IDGrp > 2 GROUP BY IDGrp"))
            EXPECT_GE(size.toInt(), std::string(GetParam()) == "delete" ? kInstruments - 1 : kInstruments);
        EXPECT_EQ(number("SELECT Count(DISTINCT IDGrp) FROM tbInstrumentsUser WHERE IDGrp <> 2"), groups + 1);
        const int others = count("tbInstrumentsUser WHERE IDGrp = 2");
        const int made = int(told.filter(kInstrumentMade).size());
        EXPECT_GE(others, made);
        EXPECT_LE(others, made + underWay(told).startsWith("duplicate 2_"));
    }
    // The old place, the new one, or both for as long as the move goes on.
    void expectMoved(const QStringList& told)
    {
        const int all = count("tbInstrumentsUser");
        const int begun = underWay(told).isEmpty()               ? 0
                          : underWay(told).startsWith("move 2_") ? 1
                                                                 : kInstruments;
        EXPECT_THAT(all, testing::AnyOf(kInstruments, kInstruments + begun));
        EXPECT_EQ(count("tbGroupsUser WHERE Name = 'MANY'"), all == 2 * kInstruments ? 2 : 1);
    }
    void expectSynchronised(const QStringList& told)
    {
        const QString of =
            "SELECT IDInst FROM tbParametersUser WHERE IDGrp = 1 GROUP BY IDInst HAVING Count(*) ";
        const int done = count(QStringLiteral("(%1 = %2)").arg(of).arg(kParameters));
        EXPECT_EQ(done + count(QStringLiteral("(%1 = %2)").arg(of).arg(kParameters - 3)), kInstruments);
        if (done < kInstruments) {
            EXPECT_EQ(done % structure::PlantStates::kSlice, 0) << "whole slices";
        }
        if (underWay(told).isEmpty()) {
            EXPECT_THAT(done, testing::AnyOf(0, kInstruments)) << "0 once the next lack is there";
        }
        EXPECT_EQ(count("tbParametersUser WHERE IDPar = 'P0101' AND (Value <> '0' OR State <> 2)"),
                  told.filter(QRegularExpression("^#")).isEmpty() ? kInstruments : 0);
    }
    void expectReset(const QStringList& told)
    {
        const int marked = count("tbParametersUser WHERE State <> 0");
        EXPECT_THAT(marked, testing::AnyOf(0, kInstruments * kParameters));
        expectWhole();
        EXPECT_FALSE(told.isEmpty());
    }

    // What was begun and not completed.
    static QString underWay(const QStringList& told)
    {
        const QStringList works = told.filter(QRegularExpression("^[#=] "));
        return works.isEmpty() || works.last().startsWith('=') ? QString() : works.last().mid(2);
    }

    QString company;

private:
    KilledProcess process_;
};

TEST_P(KillPlant, LeavesEveryElementWholeAndLosesNone)
{
    const std::string work = GetParam();
    std::set<QString> caught;
    int inTheMiddle = 0;
    const int kills = killsWanted();
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        const QTemporaryDir folder;
        const QStringList told = workAndKill(folder.path());
        ASSERT_GE(told.size(), 2);
        ASSERT_TRUE(told[0].startsWith("company "));
        company = told[0].mid(8);
        SCOPED_TRACE("kill " + std::to_string(kill) + " after " + std::to_string(told.size()) +
                     " lines, the last: " + told.last().toStdString());
        expectOpens();
        if (work == "synchronise") {
            expectSynchronised(told);
        } else if (work == "reset") {
            expectReset(told);
        } else {
            expectWhole();
            work == "move" ? expectMoved(told) : expectGroups(told);
        }
        inTheMiddle += !underWay(told).isEmpty();
        caught.insert(told.last());
    }
    EXPECT_GT(inTheMiddle, 0);
    std::cout << kills << " kills of " << work << ", " << inTheMiddle << " in the middle of it, behind "
              << caught.size() << " different steps\n";
}

INSTANTIATE_TEST_SUITE_P(Works, KillPlant,
                         testing::Values("duplicate", "move", "delete", "synchronise", "reset"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
