// Measures what the value history costs the work that it listens to, and its pages and comparisons against
// the engine's own shell: calidora-history-side-by-side <file> <folder>
//
// The company is copied into the folder; the history of five million notes is made there once and kept.

#include "Measure.h"
#include "Shell.h"

#include "history/Compare.h"
#include "history/HistoryPage.h"
#include "history/NoteFile.h"
#include "history/Recorder.h"
#include "platform/QtClock.h"
#include "platform/ScriptedOperator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/PlantStates.h"
#include "structure/Structure.h"
#include "values/UpdateParam.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>
#include <optional>

namespace {

using structure::StopFlag;

const StopFlag kNeverStopped = false;
constexpr int kNotes = 5'000'000;
constexpr int kValues = 1000;

// The company with somebody who takes notes, or with nobody.
class Work
{
public:
    explicit Work(const QString& file) : file_(file) { session_.Language.Code = QStringLiteral("EN"); }

    double measured(bool noted, const std::function<void()>& work)
    {
        if (noted)
            recorder_.emplace(session_, clock_);
        session_.cnDatabase.Open(file_);
        session_.CurrentUser.Name = QStringLiteral("TECHNICIAN");
        // The history is there and open, as it is behind the first change of a day.
        session_.cnDatabase.Execute(
            "UPDATE tbParametersUser SET State = 1 - State WHERE IDGrp = 1 AND IDInst = 1;");
        const double time = measure::milliseconds(work);
        session_.cnDatabase.Close();
        if (noted && !recorder_->failure().isEmpty())
            qFatal("%s", qPrintable(recorder_->failure()));
        recorder_.reset();
        return time;
    }

    measure::Comparison withAndWithout(const std::function<void()>& prepare,
                                       const std::function<void()>& work)
    {
        const auto run = [&](bool noted) {
            prepare();
            return measured(noted, work);
        };
        return measure::inTurns([&] { return run(true); }, [&] { return run(false); });
    }

    void execute(const QString& sql)
    {
        session_.cnDatabase.Open(file_);
        session_.cnDatabase.Execute(sql);
        session_.cnDatabase.Close();
    }

    session::Session session_;
    session::Texts texts_{session_.Language};
    platform::ScriptedOperator op_;
    platform::QtClock clock_;
    structure::Structure structure_{session_, texts_, op_};

private:
    QString file_;
    std::optional<history::Recorder> recorder_;
};

QStringList firstParameters(Work& work, const QString& file)
{
    QStringList ids;
    work.session_.cnDatabase.Open(file);
    platform::Recordset rows;
    rows.Open(QStringLiteral("SELECT IDGrp || '/' || IDInst || '/' || IDPar AS Element FROM tbParametersUser "
                             "ORDER BY IDGrp, IDInst, IDPar LIMIT %1;")
                  .arg(kValues),
              work.session_.cnDatabase);
    for (; !rows.Eof(); rows.MoveNext())
        ids << rows.text(QStringLiteral("Element"));
    rows.Close();
    work.session_.cnDatabase.Close();
    return ids;
}

void measureWork(const QString& file)
{
    Work work(file);
    const QStringList parameters = firstParameters(work, file);
    int round = 0;
    const auto next = [&] { ++round; };
    measure::printLine(
        "100 edits",
        work.withAndWithout(
            next,
            [&] {
                for (int i = 0; i < 100; ++i) {
                    const QStringList ids = parameters[i].split('/');
                    const values::Causing causing(work.session_.cnDatabase, values::ValueCause::Edited);
                    work.session_.cnDatabase.Execute(
                        QStringLiteral(
                            "UPDATE tbParametersUser SET [Value] = '%1', State = 1 WHERE ((IDGrp = %2) AND "
                            "(IDInst = %3) AND (IDPar = '%4'));")
                            .arg(QString::number(round), ids[0], ids[1], ids[2]));
                }
            }),
        "<= 1.20");
    measure::printLine(
        "Values of a read, 1,000 one by one",
        work.withAndWithout(next,
                            [&] {
                                const values::Causing job(work.session_.cnDatabase, values::ValueCause::Read);
                                for (const QString& parameter : parameters) {
                                    const QStringList ids = parameter.split('/');
                                    values::Update_Param(work.session_, ids[0].toInt(), ids[1].toInt(),
                                                         ids[2], QString::number(round));
                                }
                            }),
        "<= 1.20");
    const QString lacking = QStringLiteral(
        "DELETE FROM tbParametersUser WHERE IDPar IN (SELECT mID FROM tbParam WHERE rowid % 40 = 0);");
    measure::printLine("Synchronising 10,000 instruments",
                       work.withAndWithout([&] { work.execute(lacking); },
                                           [&] {
                                               structure::PlantStates(work.session_, work.texts_, work.op_,
                                                                      work.structure_)
                                                   .Synchronize_Item(structure::kRootKey);
                                           }),
                       "<= 1.20");
}

// Notes as years of reads leave them: instrument by instrument, over and over.
void makeNotes(const QString& company)
{
    const QString file = history::historyFileOf(company);
    if (QFile::exists(file))
        return;
    history::NoteFile notes(file);
    notes.begin();
    qint64 operation = 0;
    for (int number = 0; number < kNotes; ++number) {
        if (number % 80 == 0)
            operation = notes.addOperation(number, QStringLiteral("TECHNICIAN"));
        const QByteArray parameter = "P" + QByteArray::number(number % 80),
                         value = QByteArray::number(number % 977);
        history::NewNote note;
        note.operation = operation;
        note.time = number;
        note.IDGrp = 1 + number / 80 % 200;
        note.IDInst = 1 + number / 80 / 200 % 10;
        note.IDPar = parameter;
        note.IDParGrp = "G1";
        note.oldValue = note.newValue = value;
        note.oldState = note.newState = 0;
        note.cause = values::ValueCause::Read;
        notes.add(note);
    }
    notes.commit();
}

void measurePage(const QString& company, const QString& what, const QString& key, const QString& condition,
                 const QString& target)
{
    const Shell shell(history::historyFileOf(company));
    history::HistoryPage page;
    const auto ours = [&] {
        return measure::milliseconds([&] {
            page =
                history::readHistory({company, QStringLiteral("EN"), key, false, false, {}}, kNeverStopped);
        });
    };
    const QString statement =
        QStringLiteral(
            "SELECT n.*, o.Operator FROM tbNote n LEFT JOIN tbOperation o ON n.Operation = o.ID WHERE "
            "%1 ORDER BY n.ID DESC LIMIT %2;")
            .arg(condition)
            .arg(history::HistoryPage::kMostNotes + 1);
    const measure::Comparison turns = measure::inTurns(ours, [&] { return shell.milliseconds({statement}); });
    if (!page.failure.isEmpty())
        qFatal("%s", qPrintable(page.failure));
    measure::printLine(what + QStringLiteral(", %1 notes").arg(page.notes.size()), turns, target);
}

void measureCompare(const QString& company, const QString& what, const QString& key, const QString& other,
                    const QString& condition)
{
    const Shell shell(company);
    history::Comparison result;
    const auto ours = [&] {
        return measure::milliseconds([&] {
            result = history::compare(
                {company, QStringLiteral("EN"), key, {history::CompareWith::Kind::Element, other, {}}, {}},
                kNeverStopped);
        });
    };
    const QString statement =
        QStringLiteral(
            "SELECT a.*, b.Value, p.mDesc FROM tbParametersUser a INNER JOIN tbParametersUser b ON "
            "a.IDPar = b.IDPar AND %1 INNER JOIN tbParamLanguage p ON p.mID = a.IDPar AND p.mKeyLang = "
            "'EN' ORDER BY a.IDInst, a.IDPar;")
            .arg(condition);
    const measure::Comparison turns = measure::inTurns(ours, [&] { return shell.milliseconds({statement}); });
    if (!result.failure.isEmpty())
        qFatal("%s", qPrintable(result.failure));
    measure::printLine(what + QStringLiteral(", %1 values").arg(result.compared), turns, "<= 2.00");
}

// Two groups of 100 instruments each, out of the company's own.
void addWideGroups(const QString& company)
{
    Work work(company);
    for (const char* group : {"5001", "5002"}) {
        work.execute(
            QStringLiteral("INSERT INTO tbGroupsUser VALUES (%1, 'WIDE%1', NULL, NULL);").arg(group));
        work.execute(
            QStringLiteral("INSERT INTO tbInstrumentsUser SELECT %1, IDGrp * 100 + IDInst, IDItem, Name, "
                           "Description, Address FROM tbInstrumentsUser WHERE IDGrp <= 10;")
                .arg(group));
        work.execute(
            QStringLiteral("INSERT INTO tbParametersUser SELECT %1, IDGrp * 100 + IDInst, IDPar, IDParGrp, "
                           "Value, State FROM tbParametersUser WHERE IDGrp <= 10;")
                .arg(group));
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        QTextStream(stderr) << "usage: calidora-history-side-by-side <file> <folder>\n";
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(folder);
    const QString work = folder + "/Work.mdb", noted = folder + "/Noted.mdb";
    for (const QString& copy : {work, noted}) {
        QFile::remove(copy);
        if (!QFile::copy(QString::fromLocal8Bit(argv[1]), copy))
            qFatal("cannot copy to %s", qPrintable(copy));
    }
    measure::printHead();
    measureWork(work);
    makeNotes(noted);
    measurePage(noted, "History of a parameter", "4_7_3_G1_P5", "IDGrp = 7 AND IDInst = 3 AND IDPar = 'P5'",
                "< 2.00");
    measurePage(noted, "History of an instrument", "2_7_3", "IDGrp = 7 AND IDInst = 3", "< 1.50");
    measurePage(noted, "History of a group", "1_7", "+IDGrp = 7", "reported");
    addWideGroups(noted);
    measureCompare(noted, "Comparing two instruments", "2_1_1", "2_2_1",
                   "a.IDGrp = 1 AND a.IDInst = 1 AND b.IDGrp = 2 AND b.IDInst = 1");
    measureCompare(noted, "Comparing two groups of 100 instruments", "1_5001", "1_5002",
                   "a.IDGrp = 5001 AND b.IDGrp = 5002 AND a.IDInst = b.IDInst");
    return 0;
}
