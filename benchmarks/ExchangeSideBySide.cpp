// Measures exports, the import and printing against the engine's own shell on the same company, in one run:
// calidora-exchange-side-by-side <file>
//
// The shell writes the rows of the same statements to a file of its own, and inserts the rows that are
// imported in one transaction.

#include "Measure.h"
#include "Shell.h"

#include "exchange/Export.h"
#include "exchange/Import.h"
#include "exchange/PlantPrint.h"
#include "platform/Guard.h"
#include "platform/ScriptedOperator.h"
#include "platform/VirtualClock.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/DesktopPrinters.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

enum Filter
{
    kText = 1,
    kComma = 2,
    kDataTrace = 3,
    kSpreadsheet = 4
};

constexpr int kInstruments = 100; // of the group whose trace is measured
constexpr int kReportRuns = 3;    // a report is a gigabyte

// Chooses one file again and again, and agrees to everything.
class Hand : public platform::ScriptedOperator
{
public:
    int messageBox(const QString& text, platform::Buttons, platform::Icon icon, const QString&) override
    {
        if (icon != platform::Icon::Information)
            qFatal("%s", qPrintable(text));
        return platform::answers::kYes;
    }
};

// The company on a connection of its own, with somebody logged in.
struct Bench
{
    explicit Bench(const QString& file) : company(file), traced(folder.filePath("traced.mdb"))
    {
        QFile::copy(file, traced);
        session.AppPath = folder.path();
        session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
        session.CurrentUser.IDUser = "1";
        session.CurrentUser.Modify = "-1";
    }
    void open(const QString& file)
    {
        session.cnDatabase.Close();
        session.cnDatabase.Open(file);
        session.DbName = "Company.mdb";
    }
    double exportNode(const QString& key, Filter filter)
    {
        structure.selectNode(key);
        hand.chooseFile(path(), filter);
        return measure::milliseconds([this] { exporting.Export_Item(); });
    }
    QString path() const { return folder.filePath("exported"); }

    QTemporaryDir folder;
    QString company, traced;
    session::Session session;
    session::Texts texts{session.Language};
    Hand hand;
    platform::VirtualClock clock;
    structure::Structure structure{session, texts, hand};
    exchange::Export exporting{{session, texts, hand, clock, structure}};
    exchange::Import importing{{session, texts, hand, structure}};
};

const char* const kReportStatement =
    "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDPar, "
    "tbParametersUser.IDParGrp, "
    "tbGroupsUser.Name AS GrpName, tbGroupsUser.Description AS GrpDes, tbGroupsUser.Phone, "
    "tbInstrumentsUser.Name "
    "AS InstName, tbInstrumentsUser.Description AS InstDes, tbInstrumentsUser.IDItem, "
    "tbInstrumentsUser.Address, "
    "tbParamGroupLanguage.mDesc AS ParGrpDes, tbParamLanguage.mDesc AS ParDes, tbParamType.mTag AS KeyType, "
    "tbParam.mUnit AS UM, tbParam.mDP AS Prec, tbParametersUser.Value FROM tbParamType INNER JOIN "
    "(((((((tbGroupsUser INNER JOIN tbInstrumentsUser ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp) INNER "
    "JOIN "
    "tbInstrument ON tbInstrumentsUser.IDItem = tbInstrument.mTag) INNER JOIN tbParametersUser ON "
    "(tbInstrumentsUser.IDInst = tbParametersUser.IDInst) AND (tbInstrumentsUser.IDGrp = "
    "tbParametersUser.IDGrp)) "
    "INNER JOIN tbInstrumentLanguage ON tbInstrument.mTag = tbInstrumentLanguage.mID) INNER JOIN "
    "tbParamLanguage "
    "ON tbParametersUser.IDPar = tbParamLanguage.mID) INNER JOIN tbParamGroupLanguage ON "
    "tbParametersUser.IDParGrp "
    "= tbParamGroupLanguage.mID) INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID) ON "
    "tbParamType.mID = "
    "tbParam.mKeyType WHERE ((tbInstrumentLanguage.mKeyLang = 'EN') AND (tbParamLanguage.mKeyLang = 'EN') "
    "AND "
    "(tbParamGroupLanguage.mKeyLang = 'EN')) ORDER BY tbGroupsUser.Name, tbInstrumentsUser.Name, "
    "tbParametersUser.IDParGrp, tbParametersUser.IDPar;";

void measureReports(Bench& bench, const Shell& shell)
{
    bench.open(bench.company);
    const QStringList statements{".output " + bench.folder.filePath("shell"), kReportStatement};
    const std::vector<std::pair<Filter, QString>> forms{
        {kText, "text"}, {kComma, "comma delimited"}, {kSpreadsheet, "spreadsheet"}};
    for (const auto& [form, name] : forms) {
        const auto ours = [&, form = form] { return bench.exportNode("Root", form); };
        const measure::Comparison report = measure::inTurns(
            ours, [&] { return shell.milliseconds(statements); }, kReportRuns);
        measure::printLine(QStringLiteral("Export of the whole company, %1").arg(name), report, "<= 1.50");
    }
}

// The first group gets so many instruments; the shell writes and inserts the rows that its trace is made of.
void measureTrace(Bench& bench)
{
    bench.open(bench.traced);
    bench.session.cnDatabase.Execute(QString("INSERT OR IGNORE INTO tbInstrumentsUser SELECT 1, IDGrp * 100 "
                                             "+ IDInst, IDItem, Name, Description, "
                                             "Address FROM tbInstrumentsUser WHERE IDGrp BETWEEN 2 AND %1;")
                                         .arg(kInstruments / 10));
    bench.session.cnDatabase.Execute(QString("INSERT OR IGNORE INTO tbParametersUser SELECT 1, IDGrp * 100 + "
                                             "IDInst, IDPar, IDParGrp, Value, State "
                                             "FROM tbParametersUser WHERE IDGrp BETWEEN 2 AND %1;")
                                         .arg(kInstruments / 10));
    const Shell shell(bench.traced);
    const QStringList rows{".output " + bench.folder.filePath("shell"),
                           "SELECT * FROM tbGroupsUser WHERE IDGrp = 1;",
                           "SELECT * FROM tbInstrumentsUser WHERE IDGrp = 1;",
                           "SELECT * FROM tbParametersUser WHERE IDGrp = 1;"};
    const measure::Comparison trace = measure::inTurns([&] { return bench.exportNode("1_1", kDataTrace); },
                                                       [&] { return shell.milliseconds(rows); });
    measure::printLine(QStringLiteral("Data trace of %1 instruments").arg(kInstruments), trace, "<= 2.00");

    QStringList inserts{"PRAGMA foreign_keys=ON;", "BEGIN;"};
    const auto insertOf = [&](const QString& table, const QString& select) {
        QProcess shellRun;
        shellRun.start("sqlite3", {bench.traced});
        shellRun.write((".mode insert " + table + "\n" + select + "\n").toUtf8());
        shellRun.closeWriteChannel();
        shellRun.waitForFinished(-1);
        inserts << QString::fromUtf8(shellRun.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    };
    insertOf("tbGroupsUser", "SELECT 2000000, Name, Description, Phone FROM tbGroupsUser WHERE IDGrp = 1;");
    insertOf("tbInstrumentsUser", "SELECT 2000000, IDInst, IDItem, Name, Description, Address FROM "
                                  "tbInstrumentsUser WHERE IDGrp = 1;");
    insertOf("tbParametersUser",
             "SELECT 2000000, IDInst, IDPar, IDParGrp, Value, 0 FROM tbParametersUser WHERE "
             "IDGrp = 1;");
    inserts << "COMMIT;";
    const auto remove = [&] {
        for (const char* table : {"tbParametersUser", "tbInstrumentsUser", "tbGroupsUser"})
            bench.session.cnDatabase.Execute(QString("DELETE FROM %1 WHERE IDGrp > 1000000;").arg(table));
    };
    const auto import = [&] {
        remove();
        bench.session.cnDatabase.Execute("INSERT INTO tbGroupsUser VALUES (1999999, 'x', NULL, NULL);");
        bench.structure.showRootOnly();
        bench.hand.chooseFile(bench.path());
        return measure::milliseconds([&] { bench.importing.Import_Item(); });
    };
    const auto insert = [&] {
        remove();
        return shell.milliseconds(inserts);
    };
    const measure::Comparison imported = measure::inTurns(import, insert);
    measure::printLine(QStringLiteral("Import of %1 instruments").arg(kInstruments), imported, "<= 1.50");
}

void measurePrinting(Bench& bench)
{
    bench.open(bench.company);
    platform::DesktopPrinters printers([&](const QString& key) { return bench.texts.own(key); });
    session::Printing printing(bench.session, bench.texts, bench.hand, printers);
    int pages = 0;
    bench.hand.onModal = [&](const QString&) { printing.choose(bench.texts.own("printers.pdf"), 1); };
    bench.structure.showRootOnly();
    bench.structure.selectNode("Root");
    bench.hand.chooseFile(bench.folder.filePath("plant.pdf"));
    exchange::PlantPrint print(
        {bench.session, bench.texts, bench.hand, bench.clock, bench.structure, printing});
    QFile::remove(bench.folder.filePath("plant.pdf"));
    const double milliseconds = measure::milliseconds([&] { print.Print_Item(); });
    QProcess info;
    info.start("pdfinfo", {bench.folder.filePath("plant.pdf")});
    if (info.waitForFinished(-1))
        pages =
            QString::fromUtf8(info.readAllStandardOutput()).section("Pages:", 1).section('\n', 0, 0).toInt();
    measure::printFigure(
        QStringLiteral("Printing the whole company to a PDF file, %1 pages").arg(pages),
        QStringLiteral("%1 ms a 1,000 pages").arg(qRound(milliseconds * 1000 / qMax(pages, 1))));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-exchange-side-by-side <file>\n";
        return 2;
    }
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    Bench bench(QString::fromLocal8Bit(argv[1]));
    const Shell shell(bench.company);
    measure::printHead();
    measureTrace(bench);
    measurePrinting(bench);
    measureReports(bench, shell);
    measure::printFigure("Memory at most, all through",
                         QStringLiteral("%1 MB").arg(qRound(measure::peakMegabytes())), "<= 300 MB");
    return 0;
}
