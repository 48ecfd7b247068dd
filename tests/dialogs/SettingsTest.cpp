#include "dialogs/Settings.h"

#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

using platform::answers::kOk;

class SettingsTest : public support::CompanyFixture
{
protected:
    SettingsTest()
    {
        session.LogSet = {-1, -1, 0, 180};
        session.COMPort = {4, 5, 2, 1, 1, 2, session::kLineIdle};
    }
    dialogs::Settings::Verbs verbs()
    {
        dialogs::Settings::Verbs verbs;
        verbs.Set_COMPort = [this] {
            steps << QString("set COM%1").arg(session.COMPort.Port + 1);
            return true;
        };
        verbs.Open_COMConnection = [this] {
            steps << "open";
            return portOpens;
        };
        verbs.Close_COMConnection = [this] {
            steps << "close";
            return true;
        };
        verbs.Write_Configuration = [this] {
            steps << "write";
            return true;
        };
        verbs.Delete_Log = [this](bool enabled, bool all) {
            steps << QString("purge %1%2").arg(enabled).arg(all);
        };
        verbs.SetLanguage_AllForms = [this](const QString& identifier) {
            steps << "language " + identifier;
            setLanguage(identifier);
        };
        verbs.Connect_Database = [this](const QString& path) {
            steps << "connect";
            return connects && database.Connect_Database(path);
        };
        verbs.Disconnect_Database = [this] {
            steps << "disconnect";
            database.Disconnect_Database();
        };
        verbs.companyReloaded = [this] { steps << "reloaded"; };
        verbs.companyLost = [this] { steps << "lost"; };
        return verbs;
    }
    void load()
    {
        settings.Load();
        steps.clear();
    }
    void fillCompany()
    {
        for (int field = 0; field < 10; ++field)
            settings.setCompanyText(field, QString("'%1").arg(field));
    }
    QString stored() const
    {
        return support::column(
                   plantFile(),
                   "SELECT coalesce(Company, 'NULL') || '|' || coalesce(Address, 'NULL') || '|' || "
                   "coalesce(Postcode, 'NULL') || '|' || coalesce(Locality, 'NULL') || '|' || "
                   "coalesce(Country, 'NULL') || '|' || coalesce(Phone, 'NULL') || '|' || "
                   "coalesce(Fax, 'NULL') || '|' || coalesce(EMail, 'NULL') || '|' || "
                   "coalesce(WEB, 'NULL') || '|' || coalesce(VATNumber, 'NULL') FROM tbCompanySettings")
            .value(0);
    }
    void expectDaysRefused(const QString& days, int text)
    {
        settings.setQtyDays(days);
        op.expect(texts(text));
        EXPECT_FALSE(settings.txtQtyDays_Validate()) << qPrintable(days);
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
    }

    QStringList steps;
    bool portOpens = true;
    bool connects = true;
    dialogs::Settings settings{{session, texts, op, verbs()}};
};

TEST_F(SettingsTest, ClosesThePortWhileItStandsAndOpensItOnce)
{
    settings.Load();
    EXPECT_EQ(steps, QStringList{"close"});
    settings.Unload();
    settings.Unload();
    EXPECT_EQ(steps, (QStringList{"close", "open"}));
}

TEST_F(SettingsTest, OpensThePortWhateverHappensInTheWindow)
{
    op.onModal = [this](const QString& form) {
        EXPECT_EQ(form, "frmSettings");
        settings.Load();
        support::breakDown();
    };
    settings.show();
    failures.expectUnder("Module/Settings");
    EXPECT_EQ(steps, (QStringList{"close", "open"}));
    op.onModal = {};
    steps.clear();
    settings.show();
    EXPECT_TRUE(steps.isEmpty()) << "a window that never came up closed nothing";
}

TEST_F(SettingsTest, ShowsTheSessionsValues)
{
    runOnPlant("DELETE FROM tbCompanySettings; INSERT INTO tbCompanySettings (Company, VATNumber) VALUES "
               "('C', 'V')");
    ASSERT_TRUE(connectPlant());
    load();
    EXPECT_TRUE(settings.companyEnabled());
    EXPECT_EQ(settings.companyText(0), "C");
    EXPECT_EQ(settings.companyText(9), "V");
    EXPECT_EQ(settings.companyText(5), "");
    EXPECT_TRUE(settings.DelLog() && settings.DelLogErr());
    EXPECT_FALSE(settings.DelLogApp());
    EXPECT_EQ(settings.QtyDays(), "180");
    const int line[] = {4, 5, 2, 1, 1, 2};
    for (int list = 0; list < 6; ++list)
        EXPECT_EQ(settings.portIndex(list), line[list]);
    ASSERT_EQ(settings.languages().size(), 3u);
    EXPECT_EQ(settings.languages()[std::size_t(settings.language())].Code, "EN");
    EXPECT_FALSE(settings.Changed());
}

TEST_F(SettingsTest, TheCompanyIsOpenToTheRightOnly)
{
    load();
    EXPECT_FALSE(settings.companyEnabled()) << "no company";
    setRight("Settings", "0");
    ASSERT_TRUE(connectPlant());
    load();
    EXPECT_FALSE(settings.companyEnabled());
    settings.setCompanyText(0, "MINE");
    EXPECT_FALSE(settings.Changed());
    settings.setLanguage(settings.language());
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_EQ(session.CompanySet[0], "");
}

TEST_F(SettingsTest, TheCompanysTextsHaveTheirLimitsAndAllButTwoAreCapitals)
{
    QStringList fields;
    for (const dialogs::CompanyText& text : dialogs::companyTexts())
        fields << QStringLiteral("%1 %2 %3 %4")
                      .arg(QLatin1String(text.control), QLatin1String(text.column))
                      .arg(text.limit)
                      .arg(text.capitals ? "A" : "a");
    EXPECT_EQ(fields, (QStringList{"txtCompany Company 80 A", "txtAddress Address 80 A",
                                   "txtPostcode Postcode 16 A", "txtLocality Locality 80 A",
                                   "txtCountry Country 80 A", "txtPhone Phone 20 A", "txtFax Fax 20 A",
                                   "txtEMail EMail 80 a", "txtWEB WEB 80 a", "txtVATNumber VATNumber 30 A"}));
}

TEST_F(SettingsTest, StoresInItsOrder)
{
    ASSERT_TRUE(connectPlant());
    load();
    fillCompany();
    settings.setQtyDays("365");
    settings.chkDelLogErr_Click(false);
    settings.chkDelLogApp_Click(true);
    settings.setPortIndex(0, 7);
    EXPECT_TRUE(settings.Changed());
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_FALSE(settings.Changed());
    EXPECT_EQ(steps, (QStringList{"set COM8", "write"}));
    EXPECT_EQ(stored(), "'0|'1|'2|'3|'4|'5|'6|'7|'8|'9");
    EXPECT_EQ(session.CompanySet[3], "'3");
    EXPECT_EQ(session.LogSet.DelLog, -1);
    EXPECT_EQ(session.LogSet.DelLogRuntimeErr, 0);
    EXPECT_EQ(session.LogSet.DelLogInstErr, -1);
    EXPECT_EQ(session.LogSet.LogDays, 365);
    EXPECT_EQ(session.COMPort.Port, 7);
    EXPECT_EQ(session.COMPort.Speed, 5);

    steps.clear();
    for (int field = 0; field < 10; ++field)
        settings.setCompanyText(field, "");
    EXPECT_TRUE(settings.cmdOK_Click());
    EXPECT_EQ(stored(), "NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL");
}

TEST_F(SettingsTest, WithoutAChangeNothingIsStored)
{
    load();
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_TRUE(settings.cmdOK_Click());
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(SettingsTest, WithoutACompanyTheRestIsStored)
{
    load();
    settings.setQtyDays("1");
    EXPECT_TRUE(settings.cmdOK_Click());
    EXPECT_EQ(session.LogSet.LogDays, 1);
    EXPECT_EQ(steps, (QStringList{"set COM5", "write"}));
}

TEST_F(SettingsTest, WrongDaysAreRefused)
{
    load();
    expectDaysRefused("", 516);
    expectDaysRefused("x", 516);
    expectDaysRefused("0", 517);
    expectDaysRefused("366", 517);
    for (const char* days : {"1", "365"}) {
        settings.setQtyDays(days);
        EXPECT_TRUE(settings.txtQtyDays_Validate());
    }
}

TEST_F(SettingsTest, WrongDaysStopTheApplyBehindTheCompany)
{
    ASSERT_TRUE(connectPlant());
    load();
    settings.setCompanyText(0, "NEW");
    settings.setQtyDays("999");
    op.expect(texts(517));
    EXPECT_FALSE(settings.cmdOK_Click());
    EXPECT_TRUE(stored().startsWith("NEW|"));
    EXPECT_EQ(session.LogSet.LogDays, 180);
    EXPECT_TRUE(steps.isEmpty());
    EXPECT_TRUE(settings.Changed());
}

TEST_F(SettingsTest, ALockedCompanyStopsTheApplyAndNothingIsStored)
{
    ASSERT_TRUE(connectPlant());
    load();
    settings.setCompanyText(0, "NEW");
    settings.setQtyDays("30");
    {
        SQLite::Database other(plantFile().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        EXPECT_FALSE(settings.cmdApply_Click());
        other.exec("ROLLBACK");
    }
    failures.expectUnder("frmSettings/Update_CompanySet");
    EXPECT_EQ(session.CompanySet[0], "");
    EXPECT_EQ(session.LogSet.LogDays, 180);
    EXPECT_TRUE(settings.Changed());
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_TRUE(stored().startsWith("NEW|"));
}

TEST_F(SettingsTest, TheSwitchOfThePurgeTakesItsDetailsAlong)
{
    load();
    EXPECT_TRUE(settings.logDetailsEnabled());
    EXPECT_TRUE(settings.cmdDelLogEnabled());
    settings.chkDelLogErr_Click(false);
    EXPECT_FALSE(settings.cmdDelLogEnabled()) << "neither kind is chosen";
    settings.chkDelLogApp_Click(true);
    EXPECT_TRUE(settings.cmdDelLogEnabled());
    settings.chkDelLog_Click(false);
    EXPECT_FALSE(settings.logDetailsEnabled() || settings.cmdDelLogEnabled());
    settings.chkDelLog_Click(true);
    EXPECT_TRUE(settings.logDetailsEnabled() && settings.cmdDelLogEnabled());
    session.LogSet.DelLog = 0;
    load();
    EXPECT_FALSE(settings.logDetailsEnabled() || settings.cmdDelLogEnabled());
    settings.chkDelLog_Click(true);
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_EQ(session.LogSet.DelLog, -1);
}

TEST_F(SettingsTest, TheSpinnerStepsWithinItsLimits)
{
    load();
    settings.updQtyDays_Change(1);
    EXPECT_EQ(settings.QtyDays(), "181");
    settings.updQtyDays_Change(-1);
    EXPECT_EQ(settings.QtyDays(), "180");
    load();
    settings.setQtyDays("365");
    settings.updQtyDays_Change(1);
    EXPECT_EQ(settings.QtyDays(), "365");
    settings.setQtyDays("1");
    settings.updQtyDays_Change(-1);
    EXPECT_EQ(settings.QtyDays(), "1");
    settings.setQtyDays("");
    settings.updQtyDays_Change(1);
    EXPECT_EQ(settings.QtyDays(), "1");
    session.LogSet.LogDays = 365;
    load();
    settings.updQtyDays_Change(1);
    EXPECT_FALSE(settings.Changed());
}

TEST_F(SettingsTest, DaysTakeDigitsOnly)
{
    EXPECT_EQ(settings.filterDays("7"), "7");
    EXPECT_EQ(op.beeps, 0);
    for (const char* key : {"a", "-", ".", " "})
        EXPECT_EQ(settings.filterDays(key), std::nullopt);
    EXPECT_EQ(op.beeps, 4);
}

TEST_F(SettingsTest, ResetTakesTheStandards)
{
    load();
    settings.cmdReset_Click();
    const int line[] = {0, 3, 3, 2, 0, 0};
    for (int list = 0; list < 6; ++list)
        EXPECT_EQ(settings.portIndex(list), line[list]);
    EXPECT_TRUE(settings.Changed());
    EXPECT_EQ(session.COMPort.Port, 4) << "nothing is stored yet";
}

TEST_F(SettingsTest, TheTestOpensThePortShownAndPutsTheFormerBack)
{
    load();
    settings.setPortIndex(0, 1);
    settings.setPortIndex(3, 2);
    op.expect(texts(576));
    settings.cmdTest_Click();
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Information);
    EXPECT_EQ(steps, (QStringList{"set COM2", "open", "close", "set COM5"}));
    EXPECT_EQ(session.COMPort.Port, 4);
    EXPECT_EQ(session.COMPort.Parity, 1);

    steps.clear();
    portOpens = false;
    settings.cmdTest_Click();
    EXPECT_EQ(op.boxes.size(), 1u) << "who opens tells why it failed";
    EXPECT_EQ(steps.last(), "set COM5");
    EXPECT_EQ(session.COMPort.Port, 4);
}

TEST_F(SettingsTest, ATestThatBreaksDownPutsTheSettingsBack)
{
    dialogs::Settings::Verbs breaking = verbs();
    breaking.Open_COMConnection = []() -> bool { support::breakDown(); };
    dialogs::Settings broken({session, texts, op, breaking});
    broken.Load();
    broken.setPortIndex(0, 1);
    broken.cmdTest_Click();
    failures.expectUnder("frmSettings.cmdTest_Click");
    EXPECT_EQ(session.COMPort.Port, 4);
    EXPECT_EQ(steps.last(), "set COM5");
}

TEST_F(SettingsTest, TheListsHoldTheTablesOfTheLine)
{
    EXPECT_EQ(settings.portEntries(0).size(), 16);
    EXPECT_EQ(settings.portEntries(0).last(), "COM16");
    EXPECT_EQ(settings.portEntries(1).size(), 13);
    EXPECT_EQ(settings.portEntries(1)[3], "2400");
    EXPECT_EQ(settings.portEntries(2), (QStringList{"5", "6", "7", "8"}));
    EXPECT_EQ(settings.portEntries(3),
              (QStringList{texts(256), texts(257), texts(258), texts(259), texts(260)}));
    EXPECT_EQ(settings.portEntries(4), (QStringList{"1", "1.5", "2"}));
    EXPECT_EQ(settings.portEntries(5), (QStringList{texts(261), texts(262), texts(263)}));
}

TEST_F(SettingsTest, EachPortTellsItsDeviceAndWhetherItIsThere)
{
    ASSERT_TRUE(QDir().mkpath(file("ports")));
    ASSERT_TRUE(QFile(file("Data/adapter")).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(file("Data/adapter"), file("ports/COM6")));
    ASSERT_TRUE(QFile::link(file("Data/gone"), file("ports/COM7")));
    const auto ports = settings.ports();
    ASSERT_EQ(ports.size(), 16u);
    EXPECT_EQ(ports[5].name, "COM6");
    EXPECT_EQ(ports[5].device, file("Data/adapter"));
    EXPECT_TRUE(ports[5].present);
    EXPECT_EQ(ports[6].device, file("Data/gone"));
    EXPECT_FALSE(ports[6].present);
    EXPECT_EQ(ports[10].device, "/dev/ttyACM0");
}

TEST_F(SettingsTest, TheLogsArePurgedOnDemand)
{
    settings.cmdDelLog_Click();
    settings.cmdDelAllLog_Click();
    EXPECT_EQ(steps, (QStringList{"purge 10", "purge 11"}));
}

TEST_F(SettingsTest, AnotherLanguageRelabelsAndConnectsTheCompanyAnew)
{
    ASSERT_TRUE(connectPlant());
    load();
    settings.setLanguage(0);
    EXPECT_TRUE(settings.cmdOK_Click());
    EXPECT_EQ(steps, (QStringList{"set COM5", "language IT_Italiano_1000", "disconnect", "connect",
                                  "reloaded", "write"}));
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(session.CurrentUser.IDUser, "1") << "the operator goes on";

    steps.clear();
    load();
    settings.setLanguage(0);
    EXPECT_TRUE(settings.cmdOK_Click());
    EXPECT_EQ(steps, (QStringList{"set COM5", "write"})) << "the same language";
}

TEST_F(SettingsTest, ACompanyThatDoesNotComeBackIsLost)
{
    ASSERT_TRUE(connectPlant());
    load();
    connects = false;
    settings.setLanguage(2);
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_EQ(steps.mid(2), (QStringList{"disconnect", "connect", "disconnect", "lost", "write"}));
    EXPECT_EQ(session.DbName, "");
}

TEST_F(SettingsTest, WithoutACompanyAnotherLanguageConnectsNothing)
{
    load();
    settings.setLanguage(2);
    EXPECT_TRUE(settings.cmdApply_Click());
    EXPECT_EQ(steps, (QStringList{"set COM5", "language RU_Russian_6000", "write"}));
}

TEST_F(SettingsTest, AFailureStandsUnderItsProceduresName)
{
    dialogs::Settings::Verbs breaking = verbs();
    breaking.Open_COMConnection = breaking.Close_COMConnection =
        breaking.Set_COMPort = []() -> bool { support::breakDown(); };
    dialogs::Settings broken({session, texts, op, breaking});
    broken.Load();
    failures.expectUnder("frmSettings.Load");
    broken.setQtyDays("5");
    EXPECT_FALSE(broken.cmdApply_Click());
    failures.expectUnder("frmSettings.cmdApply_Click");
    EXPECT_FALSE(broken.cmdOK_Click());
    failures.expectUnder("frmSettings.cmdOK_Click");
    broken.Unload();
    failures.expectUnder("frmSettings.Unload");

    ASSERT_TRUE(connectPlant());
    dialogs::Settings::Verbs leaving = verbs();
    leaving.Disconnect_Database = support::breakDown;
    dialogs::Settings left({session, texts, op, leaving});
    left.Load();
    left.setLanguage(0);
    EXPECT_TRUE(left.cmdApply_Click());
    failures.expectUnder("frmSettings/Reload_Db");
    session.Language = session::LanguageSettings::fromIdentifier(support::kNoLanguage);
    settings.setQtyDays("0");
    EXPECT_FALSE(settings.txtQtyDays_Validate());
    failures.expectUnder("frmSettings.txtQtyDays_Validate");
}

} // namespace
