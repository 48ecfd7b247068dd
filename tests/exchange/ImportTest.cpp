#include "exchange/ExchangeFixture.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace exchange {
namespace {

using platform::answers::kNo;
using platform::answers::kYes;

const QString kDone = QStringLiteral("Operation completed successfully.");

class ImportTest : public ExchangeFixture
{
protected:
    static QByteArray group(const QByteArray& name, const QByteArray& des = {}, const QByteArray& phone = {})
    {
        return at("", 58) + at(name, 50) + at(des, 255) + at(phone, 30) + at("", 16) + "\r\n";
    }
    static QByteArray instrument(const QByteArray& id, const QByteArray& name, const QByteArray& type,
                                 const QByteArray& des = {}, const QByteArray& address = {})
    {
        return at(id, 8) + at("", 50) + at(name, 50) + at(des, 255) + at(type, 30) + at(address, 16) + "\r\n";
    }
    static QByteArray parameter(const QByteArray& id, const QByteArray& par, const QByteArray& parGroup,
                                const QByteArray& value = {})
    {
        return at(id, 8) + at(par, 50) + at(parGroup, 50) + at(value, 255) + at("", 46) + "\r\n";
    }
    void import(const QByteArray& bytes)
    {
        op.chooseFile(makeFile(bytes));
        importing.Import_Item();
    }
    void importWell(const QByteArray& bytes)
    {
        op.expect(kDone);
        import(bytes);
    }
    // The file is asked about with these findings; the operator goes on or not.
    void importAsked(const QByteArray& bytes, const QStringList& findings, int answer)
    {
        op.expect("This file would not import well:\r\n" + findings.join("\r\n") +
                      "\r\n\r\nImport it all the same?",
                  answer);
        if (answer == kYes)
            op.expect(kDone);
        import(bytes);
        EXPECT_EQ(op.boxes[op.boxes.size() - (answer == kYes ? 2 : 1)].buttons, platform::Buttons::YesNo);
    }
    QStringList rows(const QString& sql) const { return support::column(plantFile(), sql); }
    QStringList groups() const
    {
        return rows("SELECT IDGrp || ' ' || Name FROM tbGroupsUser ORDER BY IDGrp");
    }
    void expectNothingImported()
    {
        EXPECT_EQ(groups(), QStringList({"1 GRP1", "2 ALPHA", "3 O'Hara"}));
        EXPECT_EQ(rows("SELECT Count(*) FROM tbInstrumentsUser"), QStringList({"3"}));
        EXPECT_FALSE(structure.tree().contains("1_4"));
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }

    const QByteArray whole_ = group("New", "A description", "0551 22") +
                              instrument("3", "One", "KT100", "D", "0A") +
                              parameter("3", "P0101", "G01", "12.5") + parameter("3", "P0201", "G02") +
                              instrument("9", "Two", "KT200") + parameter("9", "P1101", "G11", "4");
};

TEST_F(ImportTest, AFileBecomesANewGroup)
{
    standOn("1_1");
    importWell(whole_);
    EXPECT_EQ(groups(), QStringList({"1 GRP1", "2 ALPHA", "3 O'Hara", "4 New"}));
    EXPECT_EQ(rows("SELECT Description || '|' || Phone FROM tbGroupsUser WHERE IDGrp = 4"),
              QStringList({"A description|0551 22"}));
    EXPECT_EQ(
        rows("SELECT IDInst || '|' || IDItem || '|' || Name || '|' || ifnull(Description, 'NULL') || '|' "
             "|| ifnull(Address, 'NULL') FROM tbInstrumentsUser WHERE IDGrp = 4 ORDER BY IDInst"),
        QStringList({"1|KT100|One|D|0A", "2|KT200|Two|NULL|NULL"}));
    EXPECT_EQ(rows("SELECT IDInst || '|' || IDPar || '|' || IDParGrp || '|' || ifnull(Value, 'NULL') || '|' "
                   "|| State "
                   "FROM tbParametersUser WHERE IDGrp = 4 ORDER BY IDInst, IDPar"),
              QStringList({"1|P0101|G01|12.5|0", "1|P0201|G02|NULL|0", "2|P1101|G11|4|0"}));
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Information);
}

TEST_F(ImportTest, TheTreeShowsTheNewGroupWithAllBelow)
{
    standOn("1_1");
    importWell(whole_);
    const auto& tree = structure.tree();
    EXPECT_EQ(tree.captionOf("1_4"), "New");
    EXPECT_EQ(tree.parentOf("1_4"), "Root");
    EXPECT_EQ(tree.captionOf("2_4_1"), "One");
    EXPECT_EQ(tree.captionOf("2_4_2"), "Two");
    EXPECT_EQ(tree.captionOf("3_4_1_G01"), "Measures");
    EXPECT_EQ(tree.captionOf("3_4_1_G02"), "States");
    EXPECT_EQ(tree.captionOf("3_4_2_G11"), "Settings");
    EXPECT_EQ(structure.selectedNode(), "1_1");
    EXPECT_EQ(structure.list().rowOf("1_4"), -1);
}

TEST_F(ImportTest, TheListOfGroupsHasOneMore)
{
    standOn("Root");
    importWell(whole_);
    EXPECT_GE(structure.list().rowOf("1_4"), 0);
}

TEST_F(ImportTest, TheFirstGroupOfACompanyIsOne)
{
    runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;");
    standOn("Root");
    importWell(whole_);
    EXPECT_EQ(groups(), QStringList({"1 New"}));
}

TEST_F(ImportTest, LineEndsMayBeBareAndEmptyLinesAreSkipped)
{
    standOn("1_1");
    QByteArray file = whole_;
    file.replace("\r\n", "\n");
    file.replace(file.indexOf('\n'), 1, "\r\n\r\n\n\n");
    file.chop(1);
    importWell(file);
    EXPECT_EQ(groups().size(), 4);
    EXPECT_EQ(rows("SELECT Count(*) FROM tbParametersUser WHERE IDGrp = 4"), QStringList({"3"}));
}

TEST_F(ImportTest, AnEmptyFileAddsNothingAndSaysItIsDone)
{
    standOn("1_1");
    importWell({});
    expectNothingImported();
    importWell("\r\n\n");
    expectNothingImported();
}

TEST_F(ImportTest, BlanksArriveAsNullAndTextsAsTheyStand)
{
    standOn("1_1");
    importWell(group("O'Hara", "  led 'in'") + instrument("1", "", "kt100"));
    EXPECT_EQ(rows("SELECT Name || '|' || Description FROM tbGroupsUser WHERE IDGrp = 4"),
              QStringList({"O'Hara|  led 'in'"}));
    EXPECT_EQ(rows("SELECT Phone FROM tbGroupsUser WHERE IDGrp = 4"), QStringList({"NULL"}));
    EXPECT_EQ(rows("SELECT '[' || Name || ']' FROM tbInstrumentsUser WHERE IDGrp = 4"), QStringList({"[]"}));
}

TEST_F(ImportTest, TextsAreReadInTheMachinesCodePage)
{
    session.CodePage = 1251;
    standOn("1_1");
    importWell(group("\xC6\xF3\xEA\x98"));
    EXPECT_EQ(groups().last(), QString("4 Жук") + QChar(0x98));
}

// What would not import well
// ----------------------------------------------------------------------------------------------------------

struct Doubt
{
    QByteArray file;
    QString finding;
};

TEST_F(ImportTest, WhatWouldNotImportWellIsAskedAbout)
{
    const QByteArray north = group("North"), one = instrument("1", "One", "KT100");
    const std::vector<Doubt> doubts{
        {north.chopped(3) + "\r\n", "Line 1: 408 characters instead of 409"},
        {"\n\n" + north.chopped(2) + " \r\n", "Line 3: 410 characters instead of 409"},
        {north + instrument("1", "One", "XY9"), "Line 2: the catalogue has no type XY9"},
        {north + one + parameter("1", "P9", "G01"), "Line 3: the catalogue has no parameter P9"},
        {north + one + parameter("1", "P0101", "G9"), "Line 3: the catalogue has no parameter group G9"},
        {north + at("", 8) + at("P0101", 401) + "\r\n",
         "Line 2: neither group nor instrument nor parameter, is skipped"},
        {group(QByteArray(50, 'n')),
         "Line 1: the text fills its field and may be cut: " + QString(30, 'n') + "..."},
        {group("North", QByteArray(255, 'd')),
         "Line 1: the text fills its field and may be cut: " + QString(30, 'd') + "..."},
        {group("North", {}, QByteArray(30, '5')),
         "Line 1: the text fills its field and may be cut: " + QString(30, '5')},
        {north + instrument("1", "One", "KT100", {}, QByteArray(16, 'A')),
         "Line 2: the text fills its field and may be cut: " + QString(16, 'A')},
        {north + one + parameter("1", "P0204", "G02", QByteArray(255, 'v')),
         "Line 3: the text fills its field and may be cut: " + QString(30, 'v') + "..."},
    };
    standOn("1_1");
    for (const Doubt& doubt : doubts) {
        importAsked(doubt.file, {doubt.finding}, kNo);
        expectNothingImported();
    }
    for (std::size_t i = 0; i < doubts.size(); ++i) {
        importAsked(doubts[i].file, {doubts[i].finding}, kYes);
        EXPECT_EQ(groups().size(), 4 + int(i));
    }
}

TEST_F(ImportTest, TextsOneCharacterShorterThanTheirFieldsAreNot)
{
    standOn("1_1");
    importWell(
        group(QByteArray(49, 'n'), QByteArray(254, 'd'), QByteArray(29, '5')) +
        instrument("12345678", QByteArray(49, 'n'), "KT100", QByteArray(254, 'd'), QByteArray(15, 'A')) +
        parameter("1", "P0204", "G02", QByteArray(254, 'v')));
}

TEST_F(ImportTest, AShortLineHasEmptyFieldsAtItsEnd)
{
    standOn("1_1");
    importAsked(at("", 58) + "North\n" + at("7", 58) + "One\n7       P0101",
                {"Line 1: 63 characters instead of 409", "Line 2: 61 characters instead of 409",
                 "Line 2: the catalogue has no type ", "Line 3: 13 characters instead of 409",
                 "Line 3: the catalogue has no parameter group "},
                kYes);
    EXPECT_EQ(rows("SELECT IDItem || IDInst FROM tbInstrumentsUser WHERE IDGrp = 4"), QStringList({"1"}));
    EXPECT_EQ(rows("SELECT IDPar || '[' || IDParGrp || ']' FROM tbParametersUser WHERE IDGrp = 4"),
              QStringList({"P0101[]"}));
}

TEST_F(ImportTest, OfManyFindingsTheFirstAreListed)
{
    standOn("1_1");
    QByteArray file = group("North");
    QStringList listed;
    for (int line = 2; line <= 14; ++line) {
        file += instrument("1", "One", "XY9");
        if (line <= 13)
            listed << QString("Line %1: the catalogue has no type XY9").arg(line);
    }
    importAsked(file, listed + QStringList{"... and 1 more"}, kNo);
    file += QByteArray(2000, '\n').replace("\n", "x\n");
    importAsked(file, listed + QStringList{"... and many more; this may be no data trace"}, kNo);
}

// What cannot be imported
// ----------------------------------------------------------------------------------------------------------

struct Refusal
{
    QByteArray file;
    QString finding;
    QString line;
};

TEST_F(ImportTest, WhatTheCompanyCantTakeLeavesItAsItWas)
{
    const QByteArray north = group("North"), one = instrument("1", "One", "KT100");
    const QByteArray value = parameter("1", "P0101", "G01", "1");
    const std::vector<Refusal> refusals{
        {north + one + group("South"), "Line 3: a second group", "Line 3: "},
        {north + value, "Line 2: a parameter before an instrument", "Line 2: "},
        {one + north, "Line 1: an instrument before a group", "Line 1: "},
        {north + "\n" + one + value + value, "Line 5: the parameter P0101 a second time", "Line 5: "},
    };
    standOn("1_1");
    for (const Refusal& refusal : refusals) {
        op.expect("This file would not import well:\r\n" + refusal.finding +
                      "\r\n\r\nImport it all the same?",
                  kYes);
        import(refusal.file);
        ASSERT_EQ(failures.failures().size(), 1u);
        EXPECT_TRUE(failures.failures()[0].description.startsWith(refusal.line))
            << qPrintable(failures.failures()[0].description);
        failures.expectOne(platform::errors::kDatabase, "Module/Import_Item");
        expectNothingImported();
    }
    importWell(north + one + value + one + value); // the same parameter of two instruments
}

TEST_F(ImportTest, AnotherProgramsLockIsToldAndNothingIsLost)
{
    standOn("1_1");
    SQLite::Database other(plantFile().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE;");
    import(whole_);
    EXPECT_TRUE(failures.failures().at(0).description.contains("in use by another program"));
    failures.expectOne(platform::errors::kDatabase, "Module/Import_Item");
    other.exec("ROLLBACK;");
    expectNothingImported();
    importWell(whole_);
}

TEST_F(ImportTest, FilesOfOtherKindsAreAskedAboutAndDoNoHarm)
{
    QByteArray picture("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16), utf16;
    for (int i = 0; i < 20000; ++i)
        picture += char(i * 7919 >> 3);
    for (const char byte : whole_)
        utf16 += QByteArray(1, byte) + '\0';
    standOn("1_1");
    for (const QByteArray& file : {picture, utf16, QByteArray("\xEF\xBB\xBF") + whole_}) {
        const std::size_t boxes = op.boxes.size();
        import(file);
        ASSERT_EQ(op.boxes.size(), boxes + 1);
        EXPECT_EQ(op.unexpected.size(), 1);
        EXPECT_EQ(op.boxes.back().buttons, platform::Buttons::YesNo); // answered with No
        op.unexpected.clear();
        expectNothingImported();
    }
}

TEST_F(ImportTest, AFileWithoutLinesIsNoDataTrace)
{
    standOn("1_1");
    import(whole_ + QByteArray(70000, 'x'));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Import_Item");
    expectNothingImported();
}

TEST_F(ImportTest, AFileOfFourGigabytesIsRefusedAtOnce)
{
    const qint64 size = qint64(4) << 30;
    standOn("1_1");
    const QString path = makeFile(whole_);
    ASSERT_TRUE(QFile::resize(path, size)); // without taking the room on the disk
    op.chooseFile(path);
    importing.Import_Item();
    failures.expectOne(platform::errors::kInvalidCall, "Module/Import_Item");
    expectNothingImported();
    EXPECT_EQ(QFileInfo(path).size(), size);
}

// Cut off at a line's end the file is a smaller plant; anywhere else it is asked about.
TEST_F(ImportTest, AFileCutOffAnywhereComesInWholeOrNotAtAll)
{
    standOn("1_1");
    QStringList before = groups();
    for (int length = 1; length < whole_.size(); ++length) {
        op.chooseFile(makeFile(whole_.left(length)));
        importing.Import_Item();
        op.unexpected.clear();
        const bool asked = op.boxes.back().buttons == platform::Buttons::YesNo;
        const int inLine = length % 411;
        ASSERT_EQ(asked, inLine != 0 && inLine != 409 && inLine != 410) << length;
        if (asked)
            continue; // answered with No
        ASSERT_EQ(groups().size(), before.size() + 1) << length;
        before = groups();
    }
    EXPECT_EQ(groups(), before);
}

TEST_F(ImportTest, AMissingFileFails)
{
    standOn("1_1");
    op.chooseFile(file("Data/none.dat"));
    importing.Import_Item();
    failures.expectOne(platform::errors::kFileNotFound, "Module/Import_Item");
    op.chooseFile(file("Data"));
    importing.Import_Item();
    EXPECT_EQ(failures.take().size(), 1u);
}

TEST_F(ImportTest, EscapeLeavesTheCompanyAsItWas)
{
    standOn("1_1");
    QByteArray file = whole_;
    for (int i = 0; i < 300; ++i)
        file += instrument("1", "Many", "KT100");
    for (const int after : {0, 1, 120, 180}) { // the last two while it is written
        op.escapeAfter = after;
        op.expect("Current operation has been cancelled.");
        import(file);
        EXPECT_EQ(op.escapeAfter, -1);
        expectNothingImported();
    }
}

TEST_F(ImportTest, TheDialogBeginsInTheFolderOfImports)
{
    standOn("1_1");
    session.DirImport.clear();
    op.chooseFile({});
    op.expect("Current operation has been cancelled.");
    importing.Import_Item();
    EXPECT_EQ(op.fileRequests[0].title, "Open");
    EXPECT_EQ(op.fileRequests[0].filter, "Text (Data trace) (*.dat)|*.dat");
    EXPECT_EQ(op.fileRequests[0].folder, file("Log"));
    EXPECT_EQ(session.DirImport, "");
    importWell(whole_);
    EXPECT_EQ(session.DirImport, file("Data"));
    importWell(whole_);
    EXPECT_EQ(op.fileRequests[2].folder, file("Data"));
}

TEST_F(ImportTest, ItNeedsTheRightToModifyAndACompany)
{
    importing.Import_Item();
    standOn("1_1");
    setRight("Modify", "0");
    importing.Import_Item();
    EXPECT_TRUE(op.fileRequests.empty());
}

TEST_F(ImportTest, WithoutANumberLeftNothingIsImported)
{
    runOnPlant("INSERT INTO tbGroupsUser VALUES (2147483647, 'Last', NULL, NULL);");
    standOn("1_1");
    import(whole_);
    failures.expectUnder("Module/IDMax_Grp");
    EXPECT_EQ(groups().size(), 4);
}

} // namespace
} // namespace exchange
