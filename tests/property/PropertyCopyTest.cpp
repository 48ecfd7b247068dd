#include "property/PropertyFixture.h"

#include <gmock/gmock.h>

using platform::answers::kNo;
using platform::answers::kYes;

namespace {

// The measures of the instruments of group 1 become three blocks of one family and one block of another.
class PropertyCopyTest : public support::PropertyFixture
{
protected:
    PropertyCopyTest()
    {
        runOnPlant("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P0101';"
                   "UPDATE tbParam SET mIDCopy = 'CP.01.02' WHERE mID = 'P0102';"
                   "UPDATE tbParam SET mIDCopy = 'CP.02.01' WHERE mID = 'P0103';"
                   "UPDATE tbParam SET mIDCopy = 'CP.02.02' WHERE mID = 'P0104';"
                   "UPDATE tbParam SET mIDCopy = 'CP.03.01' WHERE mID = 'P0105';"
                   "UPDATE tbParam SET mIDCopy = 'DF.01.01' WHERE mID = 'P0106';"
                   "INSERT INTO tbInstrumentsUser VALUES (1, 9, 'KT100', 'TWIN', NULL, NULL);"
                   "INSERT INTO tbParametersUser SELECT 1, 9, IDPar, IDParGrp, Value, 0 FROM tbParametersUser"
                   " WHERE IDGrp = 1 AND IDInst = 1;"
                   "UPDATE tbParametersUser SET State = 0;");
        for (const char* block : {"CP.01", "CP.02", "CP.03", "DF.01"}) {
            for (const char* language : {"EN", "RU"})
                runOnPlant(
                    QStringLiteral("INSERT INTO tbParamCopyLanguage VALUES ('%1.01', '%2', '%2 block %1')")
                        .arg(block, language));
        }
    }

    void openCopy(const QString& IDPar)
    {
        open("4_1_1_G01_" + IDPar);
        copy.load();
    }
    QStringList blocks() const
    {
        QStringList shown;
        for (int i = 0; i < copy.rowCount(); ++i)
            shown << copy.index(i, 0).data().toString() + '=' + copy.index(i, 1).data().toString();
        return shown;
    }
    void check(int row) { copy.setData(copy.index(row, 0), Qt::Checked, Qt::CheckStateRole); }
    // Values and states of the measures of one instrument.
    QStringList rows(int IDInst = 1) const
    {
        return support::column(plantFile(),
                               QStringLiteral("SELECT IfNull(Value, 'NULL') || '|' || State FROM "
                                              "tbParametersUser WHERE IDGrp = 1 AND IDInst = %1 AND "
                                              "IDParGrp = 'G01' ORDER BY IDPar")
                                   .arg(IDInst));
    }
};

const QStringList kBefore{"12.3|0", "NULL|0", "45.6|0", "466|0", "1234|0", "7|0", "8|0"};

TEST_F(PropertyCopyTest, OffersTheOtherBlocksOfTheFamily)
{
    openCopy("P0101");
    EXPECT_EQ(copy.IDCopy(), "CP.01.01");
    EXPECT_EQ(blocks(), (QStringList{"02=EN block CP.02", "03=EN block CP.03"}));
    openCopy("P0104");
    EXPECT_EQ(blocks(), (QStringList{"01=EN block CP.01", "03=EN block CP.03"}));
    EXPECT_EQ(copy.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "ID");
    EXPECT_EQ(copy.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Description");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PropertyCopyTest, DescriptionsFollowTheLanguage)
{
    setLanguage("RU_Russian_6000");
    openCopy("P0101");
    EXPECT_EQ(blocks(), (QStringList{"02=RU block CP.02", "03=RU block CP.03"}));
}

TEST_F(PropertyCopyTest, ASingleBlockOpensAnEmptyList)
{
    openCopy("P0106");
    EXPECT_EQ(copy.IDCopy(), "DF.01.01");
    EXPECT_EQ(copy.rowCount(), 0);
    openCopy("P0107"); // without a copy id
    EXPECT_EQ(copy.IDCopy(), "");
    EXPECT_EQ(copy.rowCount(), 0);
}

TEST_F(PropertyCopyTest, TheHourglassStandsWhileItWorks)
{
    std::vector<platform::Pointer> pointers;
    QObject::connect(&copy, &property::PropertyCopy::progress, [&](int done, int total) {
        if (done > 0 && done < total)
            pointers.push_back(op.pointer);
    });
    openCopy("P0101");
    EXPECT_EQ(pointers.size(), 1u);
    check(0);
    copy.Copy_Value();
    EXPECT_EQ(pointers.size(), 2u);
    EXPECT_THAT(pointers, testing::Each(platform::Pointer::Hourglass));
}

// A thousand values are one write to the disk, and another program sees all of them or none.
TEST_F(PropertyCopyTest, ACopyIsOneTransaction)
{
    openCopy("P0101");
    check(0);
    std::vector<QStringList> seen;
    QObject::connect(&copy, &property::PropertyCopy::progress, [&] { seen.push_back(rows()); });
    copy.Copy_Value();
    ASSERT_EQ(seen.size(), 4u);
    for (int step = 0; step < 3; ++step)
        EXPECT_EQ(seen[step], kBefore) << step;
    EXPECT_EQ(rows(), (QStringList{"12.3|0", "NULL|0", "12.3|1", "NULL|1", "1234|0", "7|0", "8|0"}));
    session.cnDatabase.BeginTrans(); // none is open
    session.cnDatabase.RollbackTrans();
}

TEST_F(PropertyCopyTest, SeparatorsStayAsTheyStand)
{
    runOnPlant("UPDATE tbParam SET mIDCopy = replace(mIDCopy, '.', '/') WHERE mIDCopy LIKE 'CP%';"
               "INSERT INTO tbParamCopyLanguage SELECT replace(mID, '.', '/'), mKeyLang, mDesc FROM "
               "tbParamCopyLanguage WHERE mID LIKE 'CP%';");
    openCopy("P0101");
    EXPECT_EQ(copy.IDCopy(), "CP/01/01");
    check(0);
    copy.Copy_Value();
    EXPECT_EQ(row("1", "1", "P0103"), "12.3|1");
}

TEST_F(PropertyCopyTest, ChecksAllAndNone)
{
    openCopy("P0101");
    EXPECT_EQ(copy.checkedCount(), 0);
    copy.Check_List();
    EXPECT_EQ(copy.checkedCount(), 2);
    copy.UnCheck_List();
    EXPECT_EQ(copy.checkedCount(), 0);
    check(1);
    EXPECT_EQ(copy.index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    EXPECT_FALSE(copy.setData(copy.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(copy.flags(copy.index(0, 0)).testFlag(Qt::ItemIsUserCheckable));
    EXPECT_FALSE(copy.flags(copy.index(0, 1)).testFlag(Qt::ItemIsUserCheckable));
}

TEST_F(PropertyCopyTest, NothingCheckedCopiesNothing)
{
    openCopy("P0101");
    op.expect("Select one or more records from the list.");
    copy.Copy_Value();
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
    EXPECT_EQ(rows(), kBefore);
}

TEST_F(PropertyCopyTest, OneBlockIsCopiedWithoutAQuestion)
{
    openCopy("P0101");
    check(0);
    copy.Copy_Value();
    EXPECT_TRUE(op.boxes.empty());
    // The NULL of the source clears its counterpart and marks it too.
    EXPECT_EQ(rows(), (QStringList{"12.3|0", "NULL|0", "12.3|1", "NULL|1", "1234|0", "7|0", "8|0"}));
    EXPECT_EQ(rows(9), kBefore) << "another instrument of the type";
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PropertyCopyTest, SeveralBlocksAreAskedForFirst)
{
    const QString question = "Multiple copy could require many time in the writing operation of the control "
                             "unit's RAM.\r\nProceed?";
    openCopy("P0103");
    copy.Check_List();
    op.expect(question, kNo);
    copy.Copy_Value();
    EXPECT_EQ(rows(), kBefore);
    op.expect(question, kYes);
    copy.Copy_Value();
    EXPECT_EQ(op.boxes.back().buttons, platform::Buttons::YesNo);
    // Block 03 has no counterpart of the second value: nothing changes there, in silence.
    EXPECT_EQ(rows(), (QStringList{"45.6|1", "466|1", "45.6|0", "466|0", "45.6|1", "7|0", "8|0"}));
}

TEST_F(PropertyCopyTest, AnApostropheIsCopiedAsItIs)
{
    runOnPlant("UPDATE tbParametersUser SET Value = 'O''HARA WHERE ''' WHERE IDPar = 'P0101'");
    openCopy("P0101");
    check(1);
    copy.Copy_Value();
    EXPECT_EQ(row("1", "1", "P0105"), "O'HARA WHERE '|1");
}

TEST_F(PropertyCopyTest, TheListShowsTheNewValuesAndMarksAtOnce)
{
    ASSERT_TRUE(connectPlant());
    structure.clickNode("3_1_1_G01");
    structure.pressItem("4_1_1_G01_P0101");
    openCopy("P0101");
    check(1);
    copy.Copy_Value();
    const structure::ListItem* item = structure.list().item("4_1_1_G01_P0105");
    EXPECT_EQ(item->subtext, "12");
    EXPECT_EQ(item->icon, 6);
    EXPECT_EQ(structure.selectedItem(), "4_1_1_G01_P0101");
}

TEST_F(PropertyCopyTest, ProgressGoesByRowsAndEndsFull)
{
    QStringList steps;
    QObject::connect(&copy, &property::PropertyCopy::progress,
                     [&](int done, int total) { steps << QStringLiteral("%1/%2").arg(done).arg(total); });
    openCopy("P0101");
    EXPECT_EQ(steps, (QStringList{"0/2", "1/2", "2/2", "2/2"}));
    steps.clear();
    check(0);
    copy.Copy_Value();
    EXPECT_EQ(steps, (QStringList{"0/2", "1/2", "2/2", "2/2"}));
}

TEST_F(PropertyCopyTest, AFailureKeepsWhatWasCopiedBefore)
{
    runOnPlant("CREATE TRIGGER refuse BEFORE UPDATE ON tbParametersUser WHEN OLD.IDPar = 'P0104' "
               "BEGIN SELECT RAISE(FAIL, 'refused'); END;");
    openCopy("P0101");
    check(0);
    copy.Copy_Value();
    failures.expectOne(platform::errors::kDatabase, "frmPropertyCopy/Copy_Value");
    EXPECT_EQ(row("1", "1", "P0103"), "12.3|1");
    EXPECT_EQ(row("1", "1", "P0104"), "466|0");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    session.cnDatabase.BeginTrans(); // none is open
    session.cnDatabase.RollbackTrans();
}

// The box lets the bus in, and the bus writes into the same file.
TEST_F(PropertyCopyTest, AFailureIsToldWhenNothingIsOpenAnyMoreAndTheListHasFollowed)
{
    runOnPlant("CREATE TRIGGER refuse BEFORE UPDATE ON tbParametersUser WHEN OLD.IDPar = 'P0104' "
               "BEGIN SELECT RAISE(FAIL, 'refused'); END;");
    ASSERT_TRUE(connectPlant());
    structure.clickNode("3_1_1_G01");
    openCopy("P0101");
    check(0);
    QStringList told;
    const auto former = platform::setFailureHook([&](const platform::Failure& failure) {
        told << failure.procedure;
        runOnPlant("UPDATE tbParametersUser SET State = 0 WHERE IDPar = 'P0105'");
        EXPECT_EQ(structure.list().item("4_1_1_G01_P0103")->icon, 6);
    });
    copy.Copy_Value();
    platform::setFailureHook(former);
    EXPECT_EQ(told, QStringList{"frmPropertyCopy/Copy_Value"});
}

TEST_F(PropertyCopyTest, ACopyThatCannotBeKeptIsReported)
{
    openCopy("P0101");
    check(0);
    runOnPlant("CREATE TRIGGER undo AFTER UPDATE ON tbParametersUser WHEN OLD.IDPar = 'P0104' "
               "BEGIN SELECT RAISE(ROLLBACK, 'all undone'); END;");
    copy.Copy_Value();
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_TRUE(reported[0].description.contains("all undone")) << "the first failure is told";
    EXPECT_EQ(rows(), kBefore);
}

TEST_F(PropertyCopyTest, AFailureOfTheListIsReported)
{
    openCopy("P0101");
    runOnPlant("DROP TABLE tbParamCopyLanguage");
    copy.Load_Items();
    failures.expectOne(platform::errors::kDatabase, "frmPropertyCopy/Load_Items");
    EXPECT_EQ(copy.rowCount(), 0);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PropertyCopyTest, ClosingForgetsTheList)
{
    openCopy("P0101");
    copy.unload();
    EXPECT_EQ(copy.rowCount(), 0);
}

} // namespace
