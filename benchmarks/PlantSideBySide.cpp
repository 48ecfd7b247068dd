// Measures what changes the plant against the engine's own shell running the same statements in one
// transaction: calidora-plant-side-by-side <company file>
//
// Program and shell work in turns, each on a copy of the company of its own, and the median of several runs
// counts. What one run changed is taken back before the next, outside the time.

#include "Measure.h"
#include "Shell.h"

#include "database/Database.h"
#include "platform/Guard.h"
#include "platform/ScriptedOperator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Duplicate.h"
#include "structure/PlantStates.h"
#include "structure/Records.h"
#include "structure/Structure.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

constexpr int kRuns = 5;
constexpr int kGroup = 2001, kCopy = 2002; // a large group, and its copy

// A group of 100 instruments and 8,000 parameters more; marks and lacks come and go.
const char* const kLargeGroup = R"(
    INSERT INTO tbGroupsUser VALUES (2001, 'GRP2001', 'A large plant', NULL);
    INSERT INTO tbInstrumentsUser SELECT 2001, (IDGrp - 1) * 10 + IDInst, IDItem, Name, Description, Address
      FROM tbInstrumentsUser WHERE IDGrp <= 10;
    INSERT INTO tbParametersUser SELECT 2001, (IDGrp - 1) * 10 + IDInst, IDPar, IDParGrp, Value, State
      FROM tbParametersUser WHERE IDGrp <= 10;)";
const char* const kRemoveCopy =
    "DELETE FROM tbParametersUser WHERE IDGrp = 2002; DELETE FROM tbInstrumentsUser WHERE IDGrp = 2002; "
    "DELETE FROM tbGroupsUser WHERE IDGrp = 2002;";
const char* const kLack = "DELETE FROM tbParametersUser WHERE IDPar LIKE '%01';";
const char* const kMarks = "UPDATE tbParametersUser SET State = 1;";

void change(const QString& file, const char* sql)
{
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE).exec(sql);
}

// The copies for program and shell, and the program's logic over its own.
class Workplace
{
public:
    explicit Workplace(const QString& company) : folder_(QFileInfo(company).absolutePath() + "/plant-XXXXXX")
    {
        for (const QString& file : {ours(), theirs()}) {
            QFile::copy(company, file);
            change(file, kLargeGroup);
        }
        session.DbPath = folder_.path();
        session.DbName = "Ours.mdb";
        session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
        database.Connect_Database(session.dbFile());
    }

    QString ours() const { return folder_.filePath("Ours.mdb"); }
    QString theirs() const { return folder_.filePath("Theirs.mdb"); }

    session::Session session;
    session::Texts texts{session.Language};
    platform::ScriptedOperator op;
    structure::Structure structure{session, texts, op};
    database::Database database{session, texts, op, structure};
    structure::Records records{session, op, structure};
    structure::Duplicator duplicator{session, op, structure, records, [](const char*) {}};
    structure::PlantStates states{session, texts, op, structure};

private:
    QTemporaryDir folder_;
};

QStringList statementsOfCopy()
{
    return {
        "BEGIN;",
        "INSERT INTO tbGroupsUser (IDGrp, Name, Description, Phone) SELECT 2002 AS IDGrp, Name, Description, "
        "Phone FROM tbGroupsUser WHERE (IDGrp = 2001);",
        "INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, Address) SELECT 2002 AS "
        "IDGrp, IDInst, IDItem, Name, Description, Address FROM tbInstrumentsUser WHERE (IDGrp = 2001);",
        "INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State) SELECT 2002 AS IDGrp, "
        "IDInst, IDPar, IDParGrp, Value, State FROM tbParametersUser WHERE (IDGrp = 2001);",
        "COMMIT;",
        "SELECT * FROM tbGroupsUser WHERE (IDGrp = 2002) ORDER BY IDGrp;",
        "SELECT * FROM tbInstrumentsUser WHERE (IDGrp = 2002) ORDER BY IDGrp, IDInst;",
        "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
        "tbParamGroupLanguage.mDesc AS Name FROM tbParametersUser INNER JOIN tbParamGroupLanguage ON "
        "tbParametersUser.IDParGrp = tbParamGroupLanguage.mID WHERE ((tbParametersUser.IDGrp = 2002) AND "
        "(tbParamGroupLanguage.mKeyLang = 'EN')) GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, "
        "tbParametersUser.IDParGrp, tbParamGroupLanguage.mDesc ORDER BY tbParametersUser.IDGrp, "
        "tbParametersUser.IDInst, tbParametersUser.IDParGrp;",
    };
}

QStringList statementsOfSynchronisation(const QString& file)
{
    QStringList all{"BEGIN;", "SELECT * FROM tbInstrumentsUser;"};
    SQLite::Database company(file.toStdString());
    SQLite::Statement instrument(company, "SELECT IDGrp, IDInst, IDItem FROM tbInstrumentsUser");
    while (instrument.executeStep()) {
        const QString g = instrument.getColumn(0).getText(), i = instrument.getColumn(1).getText();
        all << "DELETE FROM tbParUser_tmp;"
            << "INSERT INTO tbParUser_tmp (IDPar) SELECT IDPar FROM tbParametersUser WHERE ((IDGrp = " + g +
                   ") AND (IDInst = " + i + "));"
            << "INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State) SELECT " + g +
                   " AS IDGrp, " + i +
                   " AS IDInst, tbParam.mID AS IDPar, tbParam.mKeyParGroup AS IDParGrp, '0' AS Val, 2 AS "
                   "State FROM tbInstrument INNER JOIN (tbParamGroup INNER JOIN (tbParam LEFT JOIN "
                   "tbParUser_tmp ON tbParam.mID = tbParUser_tmp.IDPar) ON tbParamGroup.mID = "
                   "tbParam.mKeyParGroup) ON tbInstrument.mID = tbParamGroup.mKeyInst WHERE "
                   "((tbInstrument.mTag = '" +
                   instrument.getColumn(2).getText() + "') AND (tbParUser_tmp.IDPar Is Null));";
    }
    all << "COMMIT;";
    return all;
}

// Both, each on its own file, after what goes before has been done to it. A copy that the tree shows goes,
// too.
void compare(Workplace& at, const QString& what, const char* before, const measure::Work& work,
             const QStringList& statements, const QString& target)
{
    const QString copy = QStringLiteral("1_%1").arg(kCopy);
    const Shell shell(at.theirs());
    const measure::Comparison both = measure::inTurns(
        [&] {
            at.session.cnDatabase.database().exec(before);
            if (at.structure.tree().contains(copy))
                at.structure.Remove_Node_TreeBus(copy);
            return measure::milliseconds(work);
        },
        [&] {
            change(at.theirs(), before);
            return shell.milliseconds(statements);
        },
        kRuns);
    measure::printLine(what, both, target);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-plant-side-by-side <company file>\n";
        return 2;
    }
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    Workplace at(QString::fromLocal8Bit(argv[1]));
    measure::printHead();
    compare(
        at, "Duplicate, 100 instruments, 8,000 parameters", kRemoveCopy,
        [&] {
            at.duplicator.Duplicate_Item(structure::Duplicator::kOfGroup, QString::number(kGroup), {}, {});
        },
        statementsOfCopy(), "<= 1.50");
    compare(
        at, "Synchronize_Item, 10,000 instruments", kLack, [&] { at.states.Synchronize_Item("Root"); },
        statementsOfSynchronisation(at.theirs()), "<= 1.50");
    compare(
        at, "Restore_Item at the root, 800,000 rows", kMarks,
        [&] { structure::Restore_Item(at.session, at.op, "Root"); },
        {"UPDATE tbParametersUser SET State = 0 ;"}, "<= 1.20");
    return 0;
}
