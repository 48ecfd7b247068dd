// Two sides of an element, and what differs.
#include "history/Compare.h"

#include "history/CompareModel.h"
#include "history/HistoryFixture.h"
#include "platform/RecordingPrinters.h"

#include <QFile>

using namespace support;
using history::CompareModel;
using history::CompareRequest;
using history::CompareWith;
using history::Comparison;
using history::SideValue;
using Outcome = history::ComparedValue::Outcome;

namespace {

class CompareTest : public CompanyFixture
{
protected:
    CompareTest() { connectPlant(); }

    Comparison compare(const QString& key, const CompareWith& with)
    {
        CompareRequest request{plantFile(), session.Language.Code, key, with,
                               [this](const QString&) { return trace; }};
        return history::compare(request, false);
    }
    // "INST11\\Measures: EN T1 12.3 °C | 5.0 °C"; "!" marks what is on one side alone.
    static QStringList told(const Comparison& comparison, bool all = false)
    {
        QStringList lines;
        for (const history::ComparedGroup& group : comparison.groups) {
            for (const history::ComparedValue& value : group.values) {
                if (all || value.outcome != Outcome::Same)
                    lines << group.place + ": " + value.parameter + ' ' + value.left + " | " + value.right;
            }
        }
        return lines;
    }
    static QString counts(const Comparison& c)
    {
        return QStringLiteral("%1 %2 %3 %4")
            .arg(c.compared)
            .arg(c.different)
            .arg(c.onlyLeft)
            .arg(c.onlyRight);
    }

    std::vector<SideValue> trace;
};

TEST_F(CompareTest, WithTheDefaultsOfTheCatalogue)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '1.5' WHERE IDPar = 'P0101'; "
               "UPDATE tbParam SET mDftValue = NULL WHERE mID = 'P0105'");
    const Comparison result = compare("2_1_1", {});
    EXPECT_EQ(told(result), QStringList({"INST11\\Measures: EN T1 1.5 °C | 12.3 °C",
                                         "INST11\\Measures: EN T2 -- | -10 °C"}));
    EXPECT_EQ(counts(result), "13 2 0 0") << "what has no default isn't compared";
    EXPECT_EQ(result.left, "GRP1\\INST11");
    EXPECT_EQ(result.failure, "");
    EXPECT_EQ(result.groups[0].values[0].key, "4_1_1_G01_P0101");
    EXPECT_EQ(counts(compare("3_1_1_G02", {})), "4 0 0 0");
    EXPECT_EQ(counts(compare("1_1", {})), "17 3 0 0");
}

TEST_F(CompareTest, WithAnotherInstrument)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '9' WHERE IDGrp = 2 AND IDPar = 'P1101'; "
               "UPDATE tbParametersUser SET Value = '300.0' WHERE IDGrp = 2 AND IDPar = 'P1102'; "
               "DELETE FROM tbParametersUser WHERE IDGrp = 2 AND IDPar = 'P1201'; "
               "DELETE FROM tbParametersUser WHERE IDGrp = 1 AND IDPar = 'P1103'");
    const CompareWith with{CompareWith::Kind::Element, "2_2_1", {}};
    const Comparison result = compare("2_1_2", with);
    EXPECT_EQ(told(result),
              QStringList({"ALPHA\\Settings: EN SET 4.5 °C | 9.0 °C", "ALPHA\\Settings: Room's offset  | 0",
                           "ALPHA\\Service: EN CNT 1 | "}));
    EXPECT_EQ(counts(result), "4 1 1 1") << "300 and 300.0 are one number";
    EXPECT_EQ(result.right, "ALPHA\\inst21");
    EXPECT_EQ(counts(compare("3_1_2_G12", with)), "1 0 1 0");
}

TEST_F(CompareTest, WhatDiffersBehindTheDecimalsIsShownAsItIsStored)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '4.51' WHERE IDGrp = 2 AND IDPar = 'P1101'");
    EXPECT_EQ(told(compare("2_1_2", {CompareWith::Kind::Element, "2_2_1", {}})),
              QStringList{"ALPHA\\Settings: EN SET 4.5 | 4.51"});
}

TEST_F(CompareTest, TextsAreNotNumbers)
{
    runOnPlant("UPDATE tbParametersUser SET Value = 'A' WHERE IDGrp = 1 AND IDPar = 'P1101'; "
               "UPDATE tbParametersUser SET Value = 'a' WHERE IDGrp = 2 AND IDPar = 'P1101'; "
               "UPDATE tbParametersUser SET Value = NULL WHERE IDGrp = 2 AND IDPar = 'P1102'");
    EXPECT_EQ(counts(compare("2_1_2", {CompareWith::Kind::Element, "2_2_1", {}})), "4 2 0 0");
}

TEST_F(CompareTest, WithTheSameElementInAnotherFile)
{
    QFile::copy(plantFile(), file("Data/Old.bak"));
    runSql(file("Data/Old.bak"),
           "UPDATE tbParametersUser SET Value = '0' WHERE IDPar = 'P0201'; DELETE FROM tbParamLanguage; "
           "DROP TABLE tbParamEnum; UPDATE tbGroupsUser SET Name = 'OLD' WHERE IDGrp = 1;");
    QFile::setPermissions(file("Data/Old.bak"), QFile::ReadOwner);
    const QByteArray before = [&] {
        QFile old(file("Data/Old.bak"));
        EXPECT_TRUE(old.open(QIODevice::ReadOnly));
        return old.readAll();
    }();
    const Comparison result = compare("1_1", {CompareWith::Kind::Company, {}, file("Data/Old.bak")});
    EXPECT_EQ(told(result), QStringList{"INST11\\States: EN MOD On | Off"});
    EXPECT_EQ(counts(result), "18 1 0 0");
    EXPECT_EQ(result.right, "Old.bak: OLD");
    QFile old(file("Data/Old.bak"));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), before);
    EXPECT_FALSE(QFile::exists(file("Data/Old.bak-journal")));
    EXPECT_EQ(counts(compare("2_1_2", {CompareWith::Kind::Company, {}, file("Data/Old.bak")})), "4 0 0 0");
}

TEST_F(CompareTest, AFileThatIsNoneTellsWhy)
{
    QFile text(file("Data/Text.bak"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(5000, 'x'));
    text.close();
    const Comparison result = compare("1_1", {CompareWith::Kind::Company, {}, file("Data/Text.bak")});
    EXPECT_TRUE(result.failure.contains("Text.bak")) << qPrintable(result.failure);
    EXPECT_FALSE(compare("1_1", {CompareWith::Kind::Company, {}, file("Data/None.bak")}).failure.isEmpty());
}

TEST_F(CompareTest, WithADataTrace)
{
    trace = {{1, "G02", "p0201", "0 "},
             {1, "G01", "P0102", ""},
             {2, "G11", "P1101", "4.5"},
             {1, "G02", "P0999", "3"}};
    runOnPlant("DELETE FROM tbParametersUser WHERE IDPar NOT IN ('P0201', 'P0102', 'P1101')");
    const CompareWith with{CompareWith::Kind::Trace, {}, "/somewhere/Group.dat"};
    EXPECT_EQ(told(compare("1_1", with), true),
              QStringList({"INST11\\Measures: EN T2 -- | --", "INST11\\States: EN MOD On | Off",
                           "INST11\\States: P0999  | 3", "ALPHA\\Settings: EN SET 4.5 °C | 4.5 °C"}));
    EXPECT_EQ(counts(compare("2_1_1", with)), "3 1 0 1");
    EXPECT_EQ(counts(compare("3_1_1_g02", with)), "2 1 0 1");
    EXPECT_EQ(compare("1_1", with).right, "Group.dat");
}

TEST_F(CompareTest, OfTheSameTypeAndOtherGroups)
{
    const auto names = [this](const QString& key) {
        QStringList all;
        for (const auto& element : history::comparableWith(plantFile(), key))
            all << element.key + ' ' + element.name;
        return all;
    };
    EXPECT_EQ(names("2_1_2"), QStringList{"2_2_1 ALPHA\\inst21"});
    EXPECT_EQ(names("3_2_1_G11"), QStringList{"2_1_2 GRP1\\ALPHA"});
    EXPECT_EQ(names("2_1_1"), QStringList());
    EXPECT_EQ(names("1_2"), QStringList({"1_1 GRP1", "1_3 O'Hara"}));
}

class CompareTable : public CompareTest
{
protected:
    CompareTable()
    {
        runOnPlant("UPDATE tbParametersUser SET Value = '1.5' WHERE IDPar = 'P0101'; "
                   "UPDATE tbParametersUser SET Value = '7' WHERE IDPar = 'P0303'; "
                   "DELETE FROM tbParametersUser WHERE IDPar = 'P0102'");
        model.setComparison(compare("2_1_1", {}));
    }
    QString cell(const QModelIndex& index, int column) const
    {
        return index.siblingAtColumn(column).data().toString();
    }

    CompareModel model{texts};
};

TEST_F(CompareTable, GroupsAndTheirParameters)
{
    ASSERT_EQ(model.rowCount(), 2);
    const QModelIndex group = model.index(0, 0);
    EXPECT_EQ(cell(group, 0), "INST11\\Measures: 1 of 6 differ");
    EXPECT_EQ(cell(group, 1), "");
    EXPECT_EQ(model.rowCount(group), 1);
    EXPECT_EQ(model.keyAt(group), "");
    const QModelIndex row = model.index(0, 0, group);
    EXPECT_EQ(cell(row, CompareModel::Parameter), "EN T1");
    EXPECT_EQ(cell(row, CompareModel::Left), "1.5 °C");
    EXPECT_EQ(cell(row, CompareModel::Right), "12.3 °C");
    EXPECT_EQ(cell(row, CompareModel::What), "different");
    EXPECT_EQ(model.keyAt(row), "4_1_1_G01_P0101");
    EXPECT_EQ(row.parent(), group);
    EXPECT_EQ(model.rowCount(row), 0);
    EXPECT_EQ(model.keyAt(model.index(0, 0, model.index(1, 0))), "4_1_1_G03_P0303");
    EXPECT_EQ(model.counts(), "Compared: 13, different: 2, only on the left: 0, only on the right: 0");
    EXPECT_EQ(model.headings(),
              QStringList({"Parameter", "GRP1\\INST11", "Defaults of the catalogue", "Outcome"}));
    model.setAll(true);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 6);
    EXPECT_EQ(cell(model.index(1, 0, model.index(0, 0)), CompareModel::What), "the same");
    model.setAll(false);
    EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(CompareTable, AsAFileAndOnPaper)
{
    const QList<QByteArray> lines = model.lines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "Where,Parameter,GRP1\\INST11,Defaults of the catalogue,Outcome\r\n");
    EXPECT_EQ(lines[1], "INST11\\Measures,EN T1,1.5 °C,12.3 °C,different\r\n");

    platform::RecordingPrinter paper(785, 510);
    model.print(paper, "Compare: GRP1");
    EXPECT_EQ(paper.font, "Courier New");
    ASSERT_EQ(paper.pages.size(), 1u);
    const QStringList page = paper.pages[0];
    ASSERT_GE(page.size(), 8);
    EXPECT_EQ(page[0], "Compare: GRP1");
    EXPECT_EQ(page[1], model.counts());
    EXPECT_EQ(page[4], "INST11\\Measures: 1 of 6 differ");
    EXPECT_EQ(page[5].simplified(), "EN T1 1.5 °C 12.3 °C different");
    EXPECT_EQ(page[6], "INST11\\Times: 1 of 3 differ");
}

// While pages are made the window goes on: what it was reading comes in.
TEST_F(CompareTable, ThePaperShowsWhatWasListedWhenItBegan)
{
    class Interrupted : public platform::RecordingPrinter
    {
    public:
        explicit Interrupted(CompareModel& model) : RecordingPrinter(785, 510), model_(model) {}
        void printLine(const QString& line) override
        {
            RecordingPrinter::printLine(line);
            model_.setComparison({});
        }

    private:
        CompareModel& model_;
    };
    Interrupted paper(model);
    const QString counts = model.counts();
    model.print(paper, "Compare: GRP1");
    const QStringList page = paper.pages[0];
    ASSERT_GE(page.size(), 8);
    EXPECT_EQ(page[1], counts);
    EXPECT_TRUE(page[7].simplified().startsWith("EN ")) << qPrintable(page[7]);
}

TEST_F(CompareTable, AParameterIsFoundWhereItIsListed)
{
    const QModelIndex second = model.index(0, 0, model.index(1, 0));
    EXPECT_EQ(model.indexOf(model.keyAt(second)), second);
    EXPECT_FALSE(model.indexOf("4_1_1_G01_P0103").isValid()) << "it is the same on both sides";
    EXPECT_FALSE(model.indexOf("").isValid());
    model.setAll(true);
    EXPECT_EQ(model.keyAt(model.indexOf("4_1_1_G01_P0103")), "4_1_1_G01_P0103");
}

} // namespace
