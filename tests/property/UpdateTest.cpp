#include "property/PropertyFixture.h"
#include "support/FullDisk.h"

#include <QFile>

namespace {

class UpdateTest : public support::PropertyFixture
{
protected:
    // The list as the operator sees it while the dialog is open.
    void openInList(const QString& node, const QString& key)
    {
        if (session.cnDatabase.State() == platform::Connection::Closed) {
            ASSERT_TRUE(connectPlant());
        }
        structure.clickNode(node);
        structure.pressItem(key);
        open(key);
    }
    structure::ListItem item(const QString& key)
    {
        const structure::ListItem* found = structure.list().item(key);
        return found ? *found : structure::ListItem{};
    }
    QStringList group(const QString& columns, int IDGrp = 1) const
    {
        return support::column(
            plantFile(),
            QStringLiteral("SELECT %1 FROM tbGroupsUser WHERE IDGrp = %2").arg(columns).arg(IDGrp));
    }
    QStringList childrenOf(const QString& key)
    {
        const QModelIndex node = structure.tree().indexOf(key);
        QStringList captions;
        for (int row = 0; row < structure.tree().rowCount(node); ++row)
            captions << structure.tree().index(row, 0, node).data().toString();
        return captions;
    }
};

const QString kRange = "Attention! The number must be included between ";

// Numbers
// --------------------------------------------------------------------------------------------------------

TEST_F(UpdateTest, ARealIsStoredNormalisedAndMarked)
{
    const struct
    {
        const char* typed;
        const char* stored;
        const char* shown;
    } rows[] = {
        {"20.2", "20.5", "20.5 °C"}, {"20.5", "20.5", "20.5 °C"}, {"20.7", "21", "21.0 °C"},
        {"20", "20", "20.0 °C"},     {"20,2", "20.5", "20.5 °C"}, {"0.1", "0.5", "0.5 °C"},
        {"1e1", "10", "10.0 °C"},    {"007", "7", "7.0 °C"},      {"", "NULL", "--"},
    };
    for (const auto& row : rows) {
        openInList("3_1_2_G11", "4_1_2_G11_P1101");
        model.change("txtVal1", row.typed);
        EXPECT_TRUE(model.Update_Item()) << row.typed;
        EXPECT_EQ(this->row("1", "2", "P1101"), QString("%1|1").arg(row.stored)) << row.typed;
        EXPECT_EQ(item("4_1_2_G11_P1101").subtext, row.shown) << row.typed;
        EXPECT_EQ(item("4_1_2_G11_P1101").icon, 6);
        EXPECT_EQ(controls().txtVal1.text, *row.typed ? row.stored : "");
    }
    EXPECT_EQ(this->row("2", "1", "P1101"), "4.5|1") << "another instrument's";
}

TEST_F(UpdateTest, HalfDegreesGoUpBelowZeroToo)
{
    runOnPlant("UPDATE tbParam SET mLL = -50, mHL = 25.2 WHERE mID = 'P1101'");
    const std::pair<const char*, const char*> rows[] = {
        {"-1.2", "-1"}, {"-1.5", "-1.5"}, {"-1.7", "-1.5"},
        {"-0.4", "0"},  {"25.1", "25.5"}, // beyond the limit
    };
    for (const auto& [typed, stored] : rows) {
        open("4_1_2_G11_P1101");
        model.change("txtVal1", typed);
        EXPECT_TRUE(model.Update_Item());
        EXPECT_EQ(row("1", "2", "P1101"), QString("%1|1").arg(stored)) << typed;
    }
}

TEST_F(UpdateTest, OnlyDegreesCelsiusAreRounded)
{
    openInList("3_1_2_G11", "4_1_2_G11_P1102");
    model.change("txtVal1", "300.2");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(row("1", "2", "P1102"), "300.2|1");
    EXPECT_EQ(item("4_1_2_G11_P1102").subtext, "300 K");
    openInList("3_1_2_G11", "4_1_2_G11_P1103");
    model.change("txtVal1", "7");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(item("4_1_2_G11_P1103").subtext, "7 ") << "no unit, but its blank";
}

// Times, lists, texts
// --------------------------------------------------------------------------------------------

TEST_F(UpdateTest, TimesAreStoredWhole)
{
    const struct
    {
        const char* IDPar;
        QStringList typed;
        const char* stored;
        const char* shown;
    } rows[] = {
        {"P0301", {"5", "0", "0"}, "05:00:00", "05"},         {"P0301", {"", "0", "0"}, "NULL", "--"},
        {"P0302", {"0", "7", "0"}, "00:07:00", "00:07"},      {"P0302", {"", "", "0"}, "NULL", "--.--"},
        {"P0303", {"23", "59", "1"}, "23:59:01", "23:59:01"}, {"P0303", {"", "", ""}, "NULL", "--.--.--"},
    };
    for (const auto& row : rows) {
        const QString key = QStringLiteral("4_1_1_G03_") + row.IDPar;
        openInList("3_1_1_G03", key);
        model.change("txtVal1", row.typed[0]);
        model.change("txtVal2", row.typed[1]);
        model.change("txtVal3", row.typed[2]);
        EXPECT_TRUE(model.Update_Item());
        EXPECT_EQ(this->row("1", "1", row.IDPar), QString("%1|1").arg(row.stored));
        EXPECT_EQ(item(key).subtext, row.shown);
        EXPECT_EQ(item(key).icon, 6);
    }
}

TEST_F(UpdateTest, AnEnumStoresTheNumberAndShowsTheWord)
{
    openInList("3_1_1_G02", "4_1_1_G02_P0201");
    model.pickEntry(2);
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(row("1", "1", "P0201"), "-1|1");
    EXPECT_EQ(item("4_1_1_G02_P0201").subtext, "Broken");
}

TEST_F(UpdateTest, AStringStoresAnythingAndNothingAsNull)
{
    const std::pair<const char*, const char*> rows[] = {
        {"O'HARA", "O'HARA"}, {"%_\"", "%_\""}, {"КАМЕРА", "КАМЕРА"}, {"😀", "😀"}, {"", "NULL"},
    };
    for (const auto& [typed, stored] : rows) {
        openInList("3_1_1_G02", "4_1_1_G02_P0204");
        model.change("txtValStr1", QString::fromUtf8(typed));
        EXPECT_TRUE(model.Update_Item());
        EXPECT_EQ(row("1", "1", "P0204"), QString::fromUtf8(stored) + "|1");
        EXPECT_EQ(item("4_1_1_G02_P0204").subtext, QString::fromUtf8(typed));
    }
}

// What is refused
// ------------------------------------------------------------------------------------------------

TEST_F(UpdateTest, ARefusedInputTellsWhyAndChangesNothing)
{
    const struct
    {
        const char* IDPar;
        QStringList typed;
        QString message;
        const char* focus;
    } rows[] = {
        {"P0104", {"x"}, texts(516), "txtVal1"},
        {"P0104", {"--"}, texts(516), "txtVal1"},
        {"P0104", {","}, texts(516), "txtVal1"},
        {"P0104", {"１２"}, texts(516), "txtVal1"},
        {"P0104", {"6000.1"}, kRange + "0 and 6000.", "txtVal1"},
        {"P0104", {"-1"}, kRange + "0 and 6000.", "txtVal1"},
        {"P0301", {"x", "0", "0"}, texts(516), "txtVal1"},
        {"P0301", {"24", "0", "0"}, kRange + "0 and 23.", "txtVal1"},
        {"P0301", {"1.", "0", "0"}, texts(529), "txtVal1"},
        {"P0302", {"1", "", "0"}, texts(529), "txtVal2"},
        {"P0302", {"", "1", "0"}, texts(529), "txtVal2"},
        {"P0302", {"1", "x", "0"}, texts(529), "txtVal2"},
        {"P0302", {"24", "0", "0"}, texts(530), "txtVal2"},
        {"P0302", {"0", "60", "0"}, texts(530), "txtVal2"},
        {"P0303", {"1", "1", ""}, texts(529), "txtVal3"},
        {"P0303", {"", "", "1"}, texts(529), "txtVal3"},
        {"P0303", {"1", "1", "60"}, texts(530), "txtVal3"},
    };
    for (const auto& row : rows) {
        const QString parGrp = QStringLiteral("G") + QString(row.IDPar).mid(1, 2);
        openInList("3_1_1_" + parGrp, QStringLiteral("4_1_1_%1_%2").arg(parGrp, row.IDPar));
        const QString before = this->row("1", "1", row.IDPar);
        for (int i = 0; i < row.typed.size(); ++i)
            model.change(QStringLiteral("txtVal%1").arg(i + 1), row.typed[i]);
        focus.clear();
        op.expect(row.message);
        EXPECT_FALSE(model.cmdOK_Click()) << row.IDPar << row.typed.join(" ").toStdString();
        EXPECT_TRUE(op.done()) << row.IDPar << row.typed.join(" ").toStdString();
        EXPECT_EQ(focus, row.focus);
        EXPECT_TRUE(model.Dirty());
        EXPECT_TRUE(controls().cmdApply.enabled);
        EXPECT_EQ(this->row("1", "1", row.IDPar), before);
    }
}

TEST_F(UpdateTest, AnEnumWithoutASelectionIsRefused)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '7' WHERE IDPar = 'P0201'");
    open("4_1_1_G02_P0201");
    model.clickDisabled(true);
    op.expect(texts(528));
    EXPECT_FALSE(model.Update_Item());
    EXPECT_EQ(focus, "cbxValEnum");
    EXPECT_EQ(row("1", "1", "P0201"), "7|1");
}

// Instruments and groups
// -----------------------------------------------------------------------------------------

TEST_F(UpdateTest, AnInstrumentIsSavedWithItsWholeAddress)
{
    openInList("1_1", "2_1_2");
    model.change("txtValStr1", "ZETA'S");
    model.change("txtValStr2", "");
    model.change("txtVal3", "15");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(support::column(plantFile(), "SELECT Name || '|' || Address FROM tbInstrumentsUser "
                                           "WHERE IDGrp = 1 AND IDInst = 2 AND Description IS NULL"),
              QStringList{"ZETA'S|2F"});
    EXPECT_EQ(item("2_1_2").text, "ZETA'S");
    EXPECT_EQ(item("2_1_2").subtext, "2F");
    EXPECT_EQ(item("2_1_2").detail, "");
    EXPECT_EQ(item("2_1_2").icon, 3);
    EXPECT_EQ(childrenOf("1_1"), (QStringList{"INST11", "ZETA'S"})) << "sorted again";
    EXPECT_EQ(controls().txtValStr3.text, "2F");
}

TEST_F(UpdateTest, AnAddressWithoutAFirstCharacterIsOneDigit)
{
    open("2_2_1");
    model.change("txtVal3", "11");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(support::column(plantFile(), "SELECT Address FROM tbInstrumentsUser WHERE IDGrp = 2"),
              QStringList{"B"});
}

TEST_F(UpdateTest, AWrongAddressIsRefused)
{
    const std::pair<const char*, QString> rows[] = {
        {"", texts(516)}, {"x", texts(516)}, {"16", kRange + "0 and 15."}, {"-1", kRange + "0 and 15."}};
    for (const auto& [typed, message] : rows) {
        open("2_1_2");
        model.change("txtValStr1", "OTHER");
        model.change("txtVal3", typed);
        focus.clear();
        op.expect(message);
        EXPECT_FALSE(model.Update_Item()) << typed;
        EXPECT_EQ(focus, "txtVal3");
        EXPECT_EQ(
            support::column(plantFile(), "SELECT Name FROM tbInstrumentsUser WHERE IDGrp = 1 AND IDInst = 2"),
            QStringList{"ALPHA"});
    }
}

TEST_F(UpdateTest, AGroupIsSavedAndShownInItsPlace)
{
    openInList("Root", "1_1");
    model.change("txtValStr1", "AAA");
    model.change("txtValStr2", "NEW");
    model.change("txtValStr3", "");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(group("Name || '|' || Description || '|' || IfNull(Phone, 'NULL')"),
              QStringList{"AAA|NEW|NULL"});
    EXPECT_EQ(childrenOf("Root"), (QStringList{"AAA", "ALPHA", "O'Hara"}));
    EXPECT_EQ(item("1_1").text, "AAA");
    EXPECT_EQ(item("1_1").subtext, "");
    EXPECT_EQ(item("1_1").detail, "NEW");
}

TEST_F(UpdateTest, ARenamedNodeShowsInThePathAtOnce)
{
    ASSERT_TRUE(connectPlant());
    structure.clickNode("1_1");
    open("1_1");
    model.change("txtValStr1", "NORTH");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(structure.path(), "ZEL Bus\\NORTH");
    EXPECT_EQ(structure.selectedNode(), "1_1");
}

TEST_F(UpdateTest, TotalsHaveNothingToSave)
{
    for (const char* key : {"Root", "3_1_1_G02"}) {
        open(key);
        EXPECT_FALSE(model.Update_Item()) << key;
    }
}

// What could not be shown
// -----------------------------------------------------------------------------------------

TEST_F(UpdateTest, ATimeThatCouldNotBeShownSurvivesASaveAndCanBeRepaired)
{
    const char* const kBad =
        "UPDATE tbParametersUser SET Value = '25:00:00', State = 0 WHERE IDGrp = 1 AND IDPar = 'P0302'";
    runOnPlant(kBad);
    openInList("3_1_1_G03", "4_1_1_G03_P0302");
    failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
    model.clickDisabled(true);
    model.cmdApply_Click();
    EXPECT_FALSE(model.Dirty());
    EXPECT_EQ(row("1", "1", "P0302"), "25:00:00|0");
    EXPECT_EQ(item("4_1_1_G03_P0302").subtext, "25:00:00");
    model.change("txtVal1", "5");
    model.change("txtVal2", "7");
    EXPECT_TRUE(model.cmdOK_Click());
    EXPECT_EQ(row("1", "1", "P0302"), "05:07:00|1");

    runOnPlant(kBad);
    open("4_1_1_G03_P0302");
    failures.take();
    model.change("txtVal2", "7");
    model.change("txtVal2", "");
    EXPECT_TRUE(model.cmdOK_Click());
    EXPECT_EQ(row("1", "1", "P0302"), "NULL|1") << "emptied by the operator";
}

TEST_F(UpdateTest, AnAddressThatCouldNotBeShownSurvivesARenameAndCanBeRepaired)
{
    runOnPlant("UPDATE tbInstrumentsUser SET Address = '2G' WHERE IDGrp = 1 AND IDInst = 2");
    const auto address = [this] {
        return support::column(
            plantFile(), "SELECT Name || Address FROM tbInstrumentsUser WHERE IDGrp = 1 AND IDInst = 2");
    };
    openInList("1_1", "2_1_2");
    failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
    model.change("txtValStr1", "OTHER");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(address(), QStringList{"OTHER2G"});
    EXPECT_EQ(item("2_1_2").subtext, "2G");
    EXPECT_EQ(item("2_1_2").text, "OTHER");
    model.change("txtVal3", "16");
    op.expect(kRange + "0 and 15.");
    EXPECT_FALSE(model.Update_Item());
    model.change("txtVal3", "12");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(address(), QStringList{"OTHER2C"});
    EXPECT_EQ(item("2_1_2").subtext, "2C");
}

TEST_F(UpdateTest, ANumberLongerThanItsFieldIsNotWritten)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '4.12345678901', State = 0 WHERE IDPar = 'P1101'");
    open("4_1_2_G11_P1101");
    model.clickDisabled(true);
    EXPECT_TRUE(model.cmdOK_Click());
    EXPECT_EQ(row("1", "2", "P1101"), "4.12345678901|0");
}

TEST_F(UpdateTest, TextsLongerThanTheirFieldSurviveASaveAndCanBeShortened)
{
    runOnPlant(QString("UPDATE tbGroupsUser SET Name = '%1', Phone = '%2' WHERE IDGrp = 1")
                   .arg(QString(60, 'N'), QString(40, '7')));
    openInList("Root", "1_1");
    EXPECT_EQ(controls().txtValStr1.text.size(), 60);
    model.change("txtValStr2", "NEW");
    EXPECT_TRUE(model.Update_Item());
    EXPECT_EQ(group("length(Name) || '|' || Description || '|' || length(Phone)"), QStringList{"60|NEW|40"});
    model.change("txtValStr1", QString(59, 'N'));
    EXPECT_EQ(controls().txtValStr1.text.size(), 59) << "one was taken away, nothing is cut";
    model.change("txtValStr1", QString(70, 'N'));
    EXPECT_EQ(controls().txtValStr1.text.size(), 59);
    model.change("txtValStr1", QString(40, 'N'));
    model.change("txtValStr1", QString(70, 'N'));
    EXPECT_EQ(controls().txtValStr1.text.size(), 50);
}

// The mask of the field groups digits: its list shows 1234 as "1,234".
TEST_F(UpdateTest, ACommaIsRefusedWhereTheMaskGroupsDigits)
{
    const std::pair<const char*, bool> masks[] = {
        {"#,##0", true}, {"#,##0.00", true}, {"0.0", false}, {"#,##0x", false}, {"", false}};
    for (const auto& [mask, groups] : masks) {
        runOnPlant(QString("UPDATE tbParametersUser SET Value = '5', State = 0 WHERE IDPar = 'P0105';"
                           "UPDATE tbParam SET mDP = '%1', mLL = 0, mHL = 9999 WHERE mID = 'P0105'")
                       .arg(mask));
        session.cnDatabase.Close();
        ASSERT_TRUE(connectPlant());
        open("4_1_1_G01_P0105");
        model.change("txtVal1", "1,234");
        if (groups) {
            op.expect(texts(516));
            op.expect(texts(516));
        }
        EXPECT_EQ(model.validate("txtVal1"), !groups) << mask;
        EXPECT_EQ(model.Update_Item(), !groups) << mask;
        EXPECT_TRUE(op.done()) << mask;
        EXPECT_EQ(row("1", "1", "P0105"), groups ? "5|0" : "1.234|1") << mask;
        model.change("txtVal1", "1234");
        EXPECT_TRUE(model.Update_Item());
        EXPECT_EQ(row("1", "1", "P0105"), "1234|1");
    }
    runOnPlant("UPDATE tbParam SET mDP = '#,##0' WHERE mID = 'P0302'");
    open("4_1_1_G03_P0302");
    model.change("txtVal1", "1,5");
    EXPECT_TRUE(model.validate("txtVal1")) << "the mask is a number's";
}

// While a box stands
// -----------------------------------------------------------------------------------------

// A box lets keys, ticks and posted events in. None of them may bring a second one.
TEST_F(UpdateTest, BehindARefusalNothingElseIsCheckedOrSaved)
{
    class Pressing : public platform::ScriptedOperator
    {
    public:
        int messageBox(const QString& text, platform::Buttons buttons, platform::Icon icon,
                       const QString& title) override
        {
            const int answer = ScriptedOperator::messageBox(text, buttons, icon, title);
            if (whileItStands)
                whileItStands();
            return answer;
        }
        std::function<void()> whileItStands;
    } pressing;
    property::PropertyModel dialog(session, texts, pressing, structure);
    ASSERT_TRUE(connectPlant());
    dialog.open("4_1_1_G03_P0302");
    dialog.load();
    dialog.change("txtVal1", "25");
    pressing.whileItStands = [&] {
        EXPECT_TRUE(dialog.validate("txtVal1"));
        EXPECT_FALSE(dialog.cmdOK_Click());
        dialog.cmdApply_Click();
    };
    pressing.expect(texts(530));
    EXPECT_FALSE(dialog.cmdOK_Click());
    EXPECT_EQ(pressing.boxes.size(), 1u);
    pressing.expect(kRange + "0 and 23.");
    EXPECT_FALSE(dialog.validate("txtVal1"));
    EXPECT_EQ(pressing.boxes.size(), 2u);
    pressing.expect(texts(530));
    dialog.cmdApply_Click();
    EXPECT_EQ(pressing.boxes.size(), 3u);
    EXPECT_EQ(pressing.unexpected, QStringList());
    dialog.change("txtVal1", "5");
    EXPECT_TRUE(dialog.cmdOK_Click()) << "afterwards everything works";
}

// Buttons
// --------------------------------------------------------------------------------------------------------

TEST_F(UpdateTest, ApplySavesOnceAndOkSavesOnlyWhatChanged)
{
    open("4_1_2_G11_P1102");
    runOnPlant("UPDATE tbParametersUser SET State = 0");
    EXPECT_TRUE(model.cmdOK_Click());
    model.cmdApply_Click();
    EXPECT_EQ(row("1", "2", "P1102"), "300|0");
    model.change("txtVal1", "300"); // the same text is a change all the same
    model.cmdApply_Click();
    EXPECT_EQ(row("1", "2", "P1102"), "300|1");
    EXPECT_FALSE(model.Dirty());
    EXPECT_FALSE(controls().cmdApply.enabled);
    model.change("txtVal1", "301");
    EXPECT_TRUE(model.cmdOK_Click());
    EXPECT_EQ(row("1", "2", "P1102"), "301|1");
}

TEST_F(UpdateTest, TheCheckBoxIsCarriedByNoStatement)
{
    open("4_1_1_G01_P0103");
    model.clickDisabled(false);
    EXPECT_TRUE(model.cmdOK_Click());
    EXPECT_EQ(row("1", "1", "P0103"), "45.6|1");
    EXPECT_EQ(support::column(plantFile(), "SELECT mEnable FROM tbParam WHERE mID = 'P0103'"),
              QStringList{"0"});
}

// Failures
// --------------------------------------------------------------------------------------------------------

TEST_F(UpdateTest, AnElementThatVanishedIsReportedAndNothingIsShown)
{
    openInList("3_1_2_G11", "4_1_2_G11_P1102");
    runOnPlant("DELETE FROM tbParametersUser WHERE IDPar = 'P1102'");
    const QString shown = item("4_1_2_G11_P1102").subtext;
    model.change("txtVal1", "5");
    EXPECT_FALSE(model.cmdOK_Click());
    failures.expectOne(platform::errors::kNoCurrentRecord, "frmProperty/Update_Item");
    EXPECT_TRUE(model.Dirty());
    EXPECT_EQ(item("4_1_2_G11_P1102").subtext, shown);
    open("1_3");
    runOnPlant("DELETE FROM tbGroupsUser WHERE IDGrp = 3");
    model.change("txtValStr1", "X");
    EXPECT_FALSE(model.cmdOK_Click());
    failures.expectOne(platform::errors::kNoCurrentRecord, "frmProperty/Update_Item");
    EXPECT_EQ(structure.tree().captionOf("1_3"), "O'Hara");
}

TEST_F(UpdateTest, AFullDiskLeavesRowAndListAsTheyWere)
{
    openInList("Root", "1_1");
    model.change("txtValStr1", "NEW");
    {
        const support::FullDisk full(0);
        model.cmdApply_Click();
    }
    ASSERT_EQ(failures.failures().size(), 1u);
    EXPECT_EQ(failures.take()[0].procedure, "frmProperty/Update_Item");
    EXPECT_TRUE(model.Dirty());
    EXPECT_TRUE(controls().cmdApply.enabled);
    EXPECT_EQ(group("Name"), QStringList{"GRP1"});
    EXPECT_EQ(item("1_1").text, "GRP1");
    EXPECT_EQ(structure.tree().captionOf("1_1"), "GRP1");
    model.cmdApply_Click(); // there is room again
    EXPECT_EQ(group("Name"), QStringList{"NEW"});
}

TEST_F(UpdateTest, ACompanyHeldByAnotherProgramIsReported)
{
    open("1_1");
    model.change("txtValStr1", "NEW");
    platform::Connection other;
    other.Open(plantFile());
    {
        const platform::Transaction held(other);
        EXPECT_FALSE(model.Update_Item());
    }
    failures.expectOne(platform::errors::kDatabase, "frmProperty/Update_Item");
    EXPECT_EQ(group("Name"), QStringList{"GRP1"});
}

} // namespace
