#include "exchange/ExchangeFixture.h"
#include "platform/CodePage.h"
#include "support/FullDisk.h"
#include "support/NamedFailure.h"

#include <QProcess>
#include <QStandardPaths>

namespace exchange {
namespace {

class ExportTest : public ExchangeFixture
{
protected:
    // A row of the text form.
    static QByteArray row(const std::vector<QByteArray>& fields)
    {
        static const std::vector<int> kWidths{50, 255, 30, 50, 255, 16, 16, 255, 255, 255};
        QByteArray line;
        for (std::size_t i = 0; i < kWidths.size(); ++i)
            line += (i > 0 ? " " : "") + at(fields[i], kWidths[i]);
        return line + "\r\n";
    }
};

TEST_F(ExportTest, TheTextFormHasFixedColumns)
{
    makeSmallPlant();
    standOn("Root");
    const QByteArray text = exported(kTextFilter);
    EXPECT_EQ(
        text,
        row({"Name Equipment", "Description Equipment", "Phone", "Name Instrument", "Description Instrument",
             "Instrument", "Address", "Description", "Property", "Value"}) +
            row({"North", "Market, old", "0551", "Case", "Fish", "KT200", "", "Settings", "EN DIF",
                 "300 K"}) +
            row({"North", "Market, old", "0551", "Cold 1", "", "KT100", "10", "Measures", "EN T1",
                 "12.3 \xB0"
                 "C"}) +
            row({"North", "Market, old", "0551", "Cold 1", "", "KT100", "10", "States", "EN FAN", "Full"}) +
            row({"North", "Market, old", "0551", "Cold 1", "", "KT100", "10", "Times", "EN NGT", "--.--"}));
    EXPECT_EQ(text.indexOf("\r\n"), 1446);
}

TEST_F(ExportTest, TheCommaFormHasAKeyInFrontAndEscapesNothing)
{
    makeSmallPlant();
    runOnPlant("UPDATE tbGroupsUser SET Phone = '0551  ';");
    standOn("Root");
    EXPECT_EQ(exported(kCommaFilter),
              "[ID],Name Equipment,Description Equipment,Phone,Name Instrument,Description Instrument,"
              "Instrument,Address,Description,Property,Value\r\n"
              "4_7_P1102,North,Market, old,0551,Case,Fish,KT200,,Settings,EN DIF,300 K\r\n"
              "4_2_P0101,North,Market, old,0551,Cold 1,,KT100,10,Measures,EN T1,12.3 \xB0"
              "C\r\n"
              "4_2_P0202,North,Market, old,0551,Cold 1,,KT100,10,States,EN FAN,Full\r\n"
              "4_2_P0302,North,Market, old,0551,Cold 1,,KT100,10,Times,EN NGT,--.--\r\n");
}

TEST_F(ExportTest, TheDataTraceIsLinesOfSixFixedFields)
{
    makeSmallPlant();
    standOn("1_4");
    const QByteArray end = "\r\n";
    const QByteArray trace = exported(kDataTraceFilter);
    EXPECT_EQ(trace, at("", 8) + at("", 50) + at("North", 50) + at("Market, old", 255) + at("0551", 30) +
                         at("", 16) + end + //
                         at("2", 8) + at("", 50) + at("Cold 1", 50) + at("", 255) + at("KT100", 30) +
                         at("10", 16) + end + //
                         at("2", 8) + at("P0101", 50) + at("G01", 50) + at("12.3", 255) + at("", 46) + end +
                         at("2", 8) + at("P0202", 50) + at("G02", 50) + at("3", 255) + at("", 46) + end +
                         at("2", 8) + at("P0302", 50) + at("G03", 50) + at("", 255) + at("", 46) + end +
                         at("7", 8) + at("", 50) + at("Case", 50) + at("Fish", 255) + at("KT200", 30) +
                         at("", 16) + end + //
                         at("7", 8) + at("P1102", 50) + at("G11", 50) + at("300", 255) + at("", 46) + end);
    EXPECT_EQ(trace.size(), 7 * 411);
}

TEST_F(ExportTest, TheSpreadsheetIsUtf8WithUnitRawValueStateAndTime)
{
    makeSmallPlant();
    runOnPlant("UPDATE tbGroupsUser SET Name = 'Рынок \"Север\"';");
    standOn("Root");
    EXPECT_EQ(
        exported(kSpreadsheetFilter),
        "\xEF\xBB\xBF" +
            QString(
                "[ID],Name Equipment,Description Equipment,Phone,Name Instrument,"
                "Description Instrument,Instrument,Address,Description,Property,Value,"
                "Unit,Stored value,State,Exported on\r\n"
                "4_7_P1102,\"Рынок \"\"Север\"\"\",\"Market, old\",0551,Case,Fish,KT200,,Settings,EN DIF,300 "
                "K,"
                "K,300,as in the instrument,2026-03-14 09:00:00\r\n"
                "4_2_P0101,\"Рынок \"\"Север\"\"\",\"Market, old\",0551,Cold 1,,KT100,10,Measures,EN T1,12.3 "
                "°C,"
                "°C,12.3,to be written,2026-03-14 09:00:00\r\n"
                "4_2_P0202,\"Рынок \"\"Север\"\"\",\"Market, old\",0551,Cold 1,,KT100,10,States,EN FAN,Full,"
                ",3,as in the instrument,2026-03-14 09:00:00\r\n"
                "4_2_P0302,\"Рынок \"\"Север\"\"\",\"Market, old\",0551,Cold 1,,KT100,10,Times,EN NGT,--.--,"
                ",,not read yet,2026-03-14 09:00:00\r\n")
                .toUtf8());
}

TEST_F(ExportTest, AForeignReaderFindsEveryColumnOfTheSpreadsheet)
{
    const QString python = QStandardPaths::findExecutable("python3");
    if (python.isEmpty())
        GTEST_SKIP() << "python3 is not installed";
    makeSmallPlant();
    runOnPlant(
        "UPDATE tbGroupsUser SET Name = '\"a\", b', Description = ',\",' || char(10) || ';', Phone = '\"';");
    standOn("Root");
    exported(kSpreadsheetFilter);
    QProcess reader;
    reader.start(python, {"-c",
                          "import csv,sys\n"
                          "rows=list(csv.reader(open(sys.argv[1],encoding='utf-8-sig',newline='')))\n"
                          "print(len(rows), {len(row) for row in rows}, rows[1][1:4])",
                          file("Data/export.out")});
    ASSERT_TRUE(reader.waitForFinished());
    EXPECT_EQ(reader.readAllStandardOutput().trimmed(), R"(5 {15} ['"a", b', ',", ;', '"'])");
}

// The reports and the trace in the other languages, byte by byte. What the language has no word for isn't in
// them.
struct Tongue
{
    const char* identifier;
    int codePage;
    std::vector<QString> titles;
    std::vector<std::vector<QString>> rows; // as the text form has them
    QString spreadsheetTitles;
};

class ExportTongueTest : public ExportTest, public testing::WithParamInterface<Tongue>
{
protected:
    static QByteArray bytes(const QString& text) { return platform::encode(text, GetParam().codePage); }
    static std::vector<QByteArray> bytes(const std::vector<QString>& texts)
    {
        std::vector<QByteArray> fields;
        for (const QString& text : texts)
            fields.push_back(bytes(text));
        return fields;
    }
    static QByteArray commas(const std::vector<QString>& texts)
    {
        QStringList fields(texts.begin(), texts.end());
        return bytes(fields.join(',')) + "\r\n";
    }
};

TEST_P(ExportTongueTest, EveryFormByteByByte)
{
    makeSmallPlant();
    runOnPlant("UPDATE tbGroupsUser SET Name = 'Città Север';");
    setLanguage(GetParam().identifier);
    session.CodePage = GetParam().codePage;
    standOn("Root");

    QByteArray text = row(bytes(GetParam().titles)), comma = "[ID]," + commas(GetParam().titles);
    for (const auto& fields : GetParam().rows) {
        text += row(bytes({fields.begin() + 1, fields.end()}));
        comma += commas(fields);
    }
    EXPECT_EQ(exported(kTextFilter), text);
    EXPECT_EQ(exported(kCommaFilter), comma);
    const QByteArray spreadsheet = exported(kSpreadsheetFilter);
    EXPECT_EQ(spreadsheet.left(spreadsheet.indexOf("\r\n")),
              "\xEF\xBB\xBF" + GetParam().spreadsheetTitles.toUtf8());

    structure.clickNode("1_4");
    const QByteArray name = bytes("Città Север");
    const QByteArray trace = exported(kDataTraceFilter);
    EXPECT_EQ(trace.left(411), at("", 58) + at(name, 50) + at("Market, old", 255) + at("0551", 46) + "\r\n");
    EXPECT_EQ(trace.mid(2 * 411, 411),
              at("2", 8) + at("P0101", 50) + at("G01", 50) + at("12.3", 301) + "\r\n");
    EXPECT_EQ(trace.size(), 7 * 411);
}

const Tongue kItalian{"IT_Italiano_1000",
                      1252,
                      {"Nome Impianto", "Descrizione Impianto", "Telefono", "Nome Strumento",
                       "Descrizione Strumento", "Strumento", "Indirizzo", "Descrizione", "Proprietà",
                       "Valore"},
                      {{"4_7_P1102", "Città ?????", "Market, old", "0551", "Case", "Fish", "KT200", "",
                        "Regolazioni", "IT DIF", "300 K"},
                       {"4_2_P0101", "Città ?????", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Misure", "IT T1", "12.3 °C"},
                       {"4_2_P0202", "Città ?????", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Stati", "IT FAN", "Massimo"},
                       {"4_2_P0302", "Città ?????", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Tempi", "IT NGT", "--.--"}},
                      "[ID],Nome Impianto,Descrizione Impianto,Telefono,Nome Strumento,Descrizione "
                      "Strumento,Strumento,Indirizzo,"
                      "Descrizione,Proprietà,Valore,Unità,Valore memorizzato,Stato,Esportato il"};

const Tongue kRussian{"RU_Русский_6000",
                      1251,
                      {"Имя Объект", "Описание Объект", "Телефон", "Имя Прибор", "Описание Прибор", "Прибор",
                       "Адрес", "Описание", "Свойства", "Значение"},
                      {{"4_2_P0101", "Citt? Север", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Измерения", "РУ T1", "12.3 °C"},
                       {"4_2_P0202", "Citt? Север", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Состояния", "РУ FAN", "Полный"},
                       {"4_2_P0302", "Citt? Север", "Market, old", "0551", "Cold 1", "", "KT100", "10",
                        "Время", "РУ NGT", "--.--"}},
                      "[ID],Имя Объект,Описание Объект,Телефон,Имя Прибор,Описание "
                      "Прибор,Прибор,Адрес,Описание,Свойства,Значение,"
                      "Единица,Хранимое значение,Состояние,Экспортировано"};

INSTANTIATE_TEST_SUITE_P(Tongues, ExportTongueTest, testing::Values(kItalian, kRussian),
                         [](const auto& tongue) { return std::string(tongue.param.identifier, 2); });

TEST_F(ExportTest, ARowWithoutWordsInTheLanguageIsNotInTheReport)
{
    makeSmallPlant();
    setLanguage("RU_Русский_6000");
    standOn("Root");
    EXPECT_FALSE(exported(kCommaFilter).contains("P1102"));
}

TEST_F(ExportTest, AnInstrumentsReportIsItsOwnAndItsTraceTheGroups)
{
    makeSmallPlant();
    standOn("2_4_7");
    EXPECT_EQ(exported(kCommaFilter).count('\n'), 2);
    EXPECT_EQ(exported(kDataTraceFilter).count('\n'), 7);
    structure.clickNode("3_4_2_G01");
    EXPECT_EQ(exported(kCommaFilter).count('\n'), 4);
    structure.clickNode("1_4");
    EXPECT_EQ(exported(kTextFilter).count('\n'), 5);
}

TEST_F(ExportTest, TwoGroupsOfOneNameDontMix)
{
    makeSmallPlant();
    runOnPlant(
        "INSERT INTO tbGroupsUser VALUES (3, 'north', NULL, NULL);"
        "INSERT INTO tbInstrumentsUser VALUES (3, 1, 'KT100', 'Case', NULL, NULL),"
        " (3, 2, 'KT100', 'Dock', NULL, NULL), (3, 3, 'KT100', 'case', NULL, NULL);"
        "INSERT INTO tbParametersUser VALUES (3, 1, 'P0201', 'G02', '1', 0),"
        " (3, 1, 'P0102', 'G02', '1', 0), (3, 2, 'P0101', 'G01', '1', 0), (3, 3, 'P0101', 'G01', '1', 0);");
    standOn("Root");
    QStringList keys;
    for (const QByteArray& line : exported(kCommaFilter).split('\n'))
        keys << QString::fromLatin1(line.left(line.indexOf(',')));
    EXPECT_EQ(keys.mid(1, 8), QStringList({"3_1_P0102", "3_1_P0201", "3_3_P0101", "3_2_P0101", "4_7_P1102",
                                           "4_2_P0101", "4_2_P0202", "4_2_P0302"}));
}

struct Shown
{
    const char* id;
    const char* value; // null for NULL
    const char* text;
    const char* comma;
};

// The display rule in the two forms, value by value.
TEST_F(ExportTest, ValuesAreShownByTheirMeaning)
{
    const std::vector<Shown> rows{
        {"P0105", "1234.5", "1,235", "1.235"},
        {"P0104", "1234.5", "1234.5 bar", "1234.5 bar"},
        {"P0104", nullptr, "--", "--"},
        {"P0107", "7.25", "7.25 kW", "7.25 kW"},
        {"P0201", "1", "On", "On"},
        {"P0201", "9", "", ""},
        {"P0201", "x", "x", "x"},
        {"P0201", nullptr, "", ""},
        {"P0204", "a,b.c", "a,b.c", "a,b.c"},
        {"P0204", nullptr, "", ""},
        {"P0301", "2:00", "02", "02"},
        {"P0301", nullptr, "--", "--"},
        {"P0302", "02:30:00", "02:30", "02:30"},
        {"P0302", "26:1.5", "26:1.5", "26:1:5"},
        {"P0302", "26,1", "26,1", "26:1"},
        {"P0302", nullptr, "--.--", "--.--"},
        {"P0303", "01:02:03", "01:02:03", "01:02:03"},
        {"P0303", "1.2", "1.2", "1:2"},
        {"P0303", nullptr, "--.--.--", "--.--.--"},
    };
    makeSmallPlant();
    standOn("2_4_2");
    for (const Shown& row : rows) {
        const QString value = row.value ? '\'' + QString(row.value) + '\'' : QString("NULL");
        session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDInst = 2;");
        session.cnDatabase.Execute(
            QString("INSERT INTO tbParametersUser VALUES (4, 2, '%1', 'G01', %2, 0);").arg(row.id, value));
        EXPECT_EQ(exported(kTextFilter).mid(1448 + 1191, 255).trimmed(), row.text)
            << row.id << qPrintable(value);
        const QByteArray line = exported(kCommaFilter).split('\n')[1];
        EXPECT_TRUE(line.trimmed().endsWith(QByteArray(",") + row.comma)) << line.constData();
    }
}

TEST_F(ExportTest, ThePointsOfAKeyBecomeUnderlines)
{
    makeSmallPlant();
    runOnPlant("UPDATE tbParam SET mID = 'P.01.1' WHERE mID = 'P0101';"
               "UPDATE tbParamLanguage SET mID = 'P.01.1' WHERE mID = 'P0101';"
               "UPDATE tbParametersUser SET IDPar = 'P.01.1' WHERE IDPar = 'P0101';");
    standOn("2_4_2");
    EXPECT_TRUE(exported(kCommaFilter).contains("\n4_2_P_01_1,"));
    EXPECT_TRUE(exported(kSpreadsheetFilter).contains("\n4_2_P_01_1,"));
    EXPECT_TRUE(exported(kDataTraceFilter).contains("P.01.1"));
}

TEST_F(ExportTest, LongTextsAreCutInColumnsAndWholeBetweenCommas)
{
    makeSmallPlant();
    const QString name(60, 'n'), value(300, 'v');
    runOnPlant(QString("UPDATE tbInstrumentsUser SET Name = '%1' WHERE IDInst = 2;"
                       "DELETE FROM tbParametersUser;"
                       "INSERT INTO tbParametersUser VALUES (4, 2, 'P0204', 'G02', '%2', 0);")
                   .arg(name, value));
    standOn("1_4");
    const QByteArray text = exported(kTextFilter);
    EXPECT_EQ(text.size(), 2 * 1448);
    EXPECT_EQ(text.count(QByteArray(50, 'n')), 1);
    EXPECT_EQ(text.count('v'), 255);
    EXPECT_TRUE(exported(kCommaFilter).contains(',' + value.toLatin1() + "\r\n"));
    const QByteArray trace = exported(kDataTraceFilter);
    EXPECT_EQ(trace.count('n'), 50);
    EXPECT_EQ(trace.count('v'), 255);
    EXPECT_EQ(trace.mid(411 + 58, 52), QByteArray(50, 'n') + "  ");
}

TEST_F(ExportTest, WhatHasNoRowsIsToldAndLeavesNoFile)
{
    runOnPlant("INSERT INTO tbGroupsUser VALUES (9, 'Empty', NULL, NULL);");
    standOn("1_9");
    const QString nothing = "The recordset is emty.";
    for (const int filter : {kTextFilter, kCommaFilter, kSpreadsheetFilter}) {
        exportTo(file("Data/none"), filter, nothing);
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
    }
    EXPECT_EQ(exported(kDataTraceFilter), at("", 58) + at("Empty", 351) + "\r\n");
    structure.clickNode("Root");
    exportTo(file("Data/none"), kDataTraceFilter, nothing);
    session.cnDatabase.Execute("DELETE FROM tbGroupsUser WHERE IDGrp = 9;");
    structure.clickNode("1_9");
    exportTo(file("Data/none"), kDataTraceFilter, nothing);
    EXPECT_FALSE(filesIn("Data").contains("none"));
}

TEST_F(ExportTest, TheDialogOffersTheFormsAndRemembersTheFolder)
{
    standOn("1_1");
    session.DirExport.clear();
    exportTo(file("Data/a.txt"), kTextFilter, "Operation completed successfully.");
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Information);
    EXPECT_EQ(op.boxes.back().title, "Calidora");
    ASSERT_EQ(op.fileRequests.size(), 1u);
    EXPECT_EQ(op.fileRequests[0].title, "Save as");
    EXPECT_EQ(op.fileRequests[0].filter,
              "Text (Tab delimited) (*.txt)|*.txt|Text (Comma delimited) (*.csv)|*.csv|"
              "Text (Data trace) (*.dat)|*.dat|Spreadsheet (*.csv)|*.csv");
    EXPECT_EQ(op.fileRequests[0].filterIndex, kTextFilter);
    EXPECT_EQ(op.fileRequests[0].folder, file("Log"));
    EXPECT_EQ(session.DirExport, file("Data"));
    exportTo(file("Log/a.txt"), kTextFilter, "Operation completed successfully.");
    EXPECT_EQ(op.fileRequests[1].folder, file("Data"));
}

TEST_F(ExportTest, ACancelledDialogIsToldAndNothingElseHappens)
{
    standOn("1_1");
    session.DirExport = file("Data");
    op.chooseFile({});
    op.expect("Current operation has been cancelled.");
    exporting.Export_Item();
    EXPECT_EQ(session.DirExport, file("Data"));
    EXPECT_TRUE(filesIn("Log").isEmpty());
}

TEST_F(ExportTest, EscapeLeavesTheFormerFileAndNothingBeside)
{
    standOn("Root");
    makeFile("former");
    for (const int filter : {kTextFilter, kDataTraceFilter}) {
        structure.clickNode("1_1");
        op.escapeAfter = 1;
        const int files = int(filesIn("Data").size());
        exportTo(file("Data/import.dat"), filter, "Current operation has been cancelled.");
        EXPECT_EQ(op.escapeAfter, -1);
        EXPECT_EQ(contents(file("Data/import.dat")), "former");
        EXPECT_EQ(filesIn("Data").size(), files);
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
}

TEST_F(ExportTest, TheBarShowsHowFarItIs)
{
    standOn("1_1");
    for (const int filter : {kTextFilter, kDataTraceFilter}) {
        QStringList bar;
        const auto shown = QObject::connect(&structure, &structure::Structure::updateShown,
                                            [&](bool visible) { bar << (visible ? "shown" : "hidden"); });
        const auto moved = QObject::connect(&structure, &structure::Structure::updateProgress,
                                            [&](int percent) { bar << QString::number(percent); });
        exported(filter);
        EXPECT_EQ(bar.first(), "shown");
        EXPECT_EQ(bar.last(), "hidden");
        EXPECT_EQ(bar[bar.size() - 2], "100");
        EXPECT_GT(bar.size(), 10);
        QObject::disconnect(shown);
        QObject::disconnect(moved);
    }
}

TEST_F(ExportTest, NobodyLoggedInExportsNothing)
{
    ASSERT_TRUE(connectTo("Plant.mdb"));
    structure.clickNode("1_1");
    exporting.Export_Item();
    EXPECT_TRUE(op.fileRequests.empty());
}

TEST_F(ExportTest, WithNothingSelectedNothingIsAsked)
{
    exporting.Export_Item();
    EXPECT_TRUE(op.fileRequests.empty());
}

TEST_F(ExportTest, AFileThatCannotBeWrittenFailsAndLeavesTheFormerOne)
{
    standOn("Root");
    op.chooseFile(file("no folder/a.txt"));
    exporting.Export_Item();
    failures.expectOne(platform::errors::kPathNotFound, "Module/Export_Item");

    makeFile("former");
    {
        const support::FullDisk full(8192);
        op.chooseFile(file("Data/import.dat"));
        exporting.Export_Item();
    }
    failures.expectOne(platform::errors::kDiskFull, "Module/Export_Item");
    EXPECT_EQ(contents(file("Data/import.dat")), "former");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(ExportTest, ACompanyThatIsGoneFails)
{
    standOn("1_1");
    session.cnDatabase.Close();
    op.chooseFile(file("Data/a.txt"));
    exporting.Export_Item();
    failures.expectOne(platform::errors::kObjectClosed, "Module/Export_Item");
}

} // namespace
} // namespace exchange
