#include "users/UserEditor.h"

#include "platform/RecordingPrinters.h"
#include "session/Lookup.h"
#include "session/Printing.h"
#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"
#include "users/UserTable.h"

#include <QRegularExpression>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

// A lookup list that is answered beforehand.
class ScriptedLookup : public session::Lookup
{
public:
    QString ShowZoom(const QString& Value) override
    {
        typed << Value;
        return Value.endsWith('*') ? chosen : Value;
    }
    QStringList typed;
    QString chosen;
};

class UserEditorTest : public support::CompanyFixture
{
protected:
    UserEditorTest()
    {
        QObject::connect(&editor, &users::UserEditor::focusWanted,
                         [this](const QString& control) { focus = control; });
        QObject::connect(&editor, &users::UserEditor::filled, [this] { ++fillings; });
    }
    void open()
    {
        ASSERT_TRUE(connectTo("Plant.mdb"));
        ASSERT_TRUE(logIn(support::kAdministrator));
        editor.Load();
    }
    // The operator types a number and moves on.
    void number(const QString& typed)
    {
        editor.enterIDUser();
        editor.setText("IDUser", typed);
        editor.txtIDUser_LostFocus();
    }
    void save() { EXPECT_TRUE(editor.Update_Item()); }
    void expectRefusal(int text)
    {
        op.expect(texts(519), kYes);
        op.expect(texts(text));
        EXPECT_FALSE(editor.Update_Item());
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        EXPECT_TRUE(editor.Changed()) << "what was typed stands";
    }
    QString stored(const QString& IDUser) const
    {
        return support::column(
                   plantFile(),
                   "SELECT Name || '|' || State || '|' || coalesce(Password, 'NULL') || '|' || "
                   "coalesce(Phone, 'NULL') || '|' || coalesce(Fax, 'NULL') || '|' || "
                   "coalesce(MobilePhone, 'NULL') || '|' || coalesce(EMail, 'NULL') || '|' || UpgradeDb || "
                   "Settings || Modify || EventViewer || ReadWrite FROM tbUsers WHERE IDUser = '" +
                       IDUser + "'")
            .value(0);
    }
    QString name() const { return editor.text("Name"); }

    ScriptedLookup lookup;
    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
    users::UserEditor editor{{session, texts, op, lookup, printing}};
    QString focus;
    int fillings = 0;
};

TEST_F(UserEditorTest, ComesUpWithAnEmptyNewRecord)
{
    open();
    EXPECT_TRUE(editor.NewRecord());
    EXPECT_FALSE(editor.Changed());
    EXPECT_TRUE(editor.controlsEnabled());
    EXPECT_EQ(editor.text("IDUser") + name(), "");
    EXPECT_EQ(editor.state(), 0);
    EXPECT_FALSE(editor.right("Modify"));
}

TEST_F(UserEditorTest, WalksByNameAndRound)
{
    open();
    QStringList seen;
    const auto step = [&](void (users::UserEditor::*move)()) {
        focus.clear();
        (editor.*move)();
        EXPECT_EQ(focus, "txtIDUser");
        EXPECT_FALSE(editor.NewRecord() || editor.Changed());
        seen << name();
    };
    step(&users::UserEditor::First_Item);
    for (int i = 0; i < 4; ++i)
        step(&users::UserEditor::Next_Item);
    EXPECT_EQ(seen, (QStringList{"ADMINISTRATOR", "FORMER", "GUEST", "TECHNICIAN", "ADMINISTRATOR"}));
    seen.clear();
    step(&users::UserEditor::Prev_Item);
    step(&users::UserEditor::Prev_Item);
    step(&users::UserEditor::Last_Item);
    step(&users::UserEditor::First_Item);
    EXPECT_EQ(seen, (QStringList{"TECHNICIAN", "GUEST", "TECHNICIAN", "ADMINISTRATOR"}));
}

TEST_F(UserEditorTest, WalkingAnEmptyListStaysWhereItIs)
{
    open();
    runOnPlant("DELETE FROM tbUsers");
    editor.Refresh_Item();
    for (auto move : {&users::UserEditor::First_Item, &users::UserEditor::Last_Item,
                      &users::UserEditor::Next_Item, &users::UserEditor::Prev_Item})
        (editor.*move)();
    EXPECT_TRUE(editor.NewRecord());
}

TEST_F(UserEditorTest, WalksOnAfterANumberThatNobodyHas)
{
    open();
    number("77");
    op.expect(texts(519), kNo);
    editor.Next_Item();
    EXPECT_EQ(name(), "ADMINISTRATOR");
    number("78");
    op.expect(texts(519), kNo);
    editor.Prev_Item();
    EXPECT_EQ(name(), "TECHNICIAN");
}

TEST_F(UserEditorTest, FillsEverythingOfTheRecord)
{
    runOnPlant("UPDATE tbUsers SET Phone = '1', Fax = '2', MobilePhone = '3', EMail = 'a@b', Settings = 0 "
               "WHERE IDUser = "
               "'3'");
    open();
    number("3");
    EXPECT_EQ(name(), "FORMER");
    EXPECT_EQ(editor.state(), 1);
    EXPECT_EQ(editor.text("Phone") + editor.text("Fax") + editor.text("MobilePhone") + editor.text("EMail"),
              "123a@b");
    EXPECT_EQ(editor.text("Password"), "");
    EXPECT_TRUE(editor.right("UpgradeDb") && editor.right("Modify") && editor.right("EventViewer") &&
                editor.right("ReadWrite"));
    EXPECT_FALSE(editor.right("Settings"));
    number("2");
    EXPECT_EQ(editor.text("Password"), "Secret");
}

TEST_F(UserEditorTest, ABrokenRecordIsShownAsFarAsItGoes)
{
    runOnPlant(
        "INSERT INTO tbUsers (IDUser, Name, State, Modify, ReadWrite) VALUES ('5', NULL, 'x', 7, 'y')");
    open();
    number("5");
    EXPECT_EQ(name(), "");
    EXPECT_EQ(editor.state(), 1) << "who can't log in is shown as disabled";
    EXPECT_TRUE(editor.right("Modify"));
    EXPECT_FALSE(editor.right("ReadWrite"));
    editor.setText("Name", "REPAIRED");
    editor.setState(0);
    op.expect(texts(519), kYes);
    save();
    EXPECT_EQ(stored("5"), "REPAIRED|0|NULL|NULL|NULL|NULL|NULL|00-100");
}

TEST_F(UserEditorTest, ANewOperatorIsAddedAndShown)
{
    open();
    number("0042");
    editor.setText("Name", "O'HARA");
    editor.setText("Phone", "055");
    editor.setText("Password", "pAss");
    editor.setRight("Modify", true);
    editor.setRight("UpgradeDb", true);
    editor.setRight("UpgradeDb", false);
    editor.setState(1);
    EXPECT_TRUE(editor.NewRecord());
    op.expect(texts(519), kYes);
    save();
    EXPECT_EQ(op.boxes.back().buttons, platform::Buttons::YesNo);
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Question);
    EXPECT_EQ(stored("42"), "O'HARA|1|pAss|055|NULL|NULL|NULL|00-100");
    EXPECT_EQ(editor.text("IDUser"), "42");
    EXPECT_FALSE(editor.NewRecord() || editor.Changed());
    editor.Next_Item();
    EXPECT_EQ(name(), "TECHNICIAN") << "it stands on the new record";
    save();
}

TEST_F(UserEditorTest, ARecordIsChangedInEverything)
{
    open();
    number("3");
    editor.setText("Name", "NAME");
    editor.setText("Password", "12345678");
    editor.setText("Phone", "P");
    editor.setText("Fax", "F");
    editor.setText("MobilePhone", "M");
    editor.setText("EMail", QString::fromUtf8("почта@b"));
    editor.setState(0);
    for (const char* right : {"UpgradeDb", "Settings", "EventViewer"})
        editor.setRight(right, false);
    op.expect(texts(519), kYes);
    save();
    EXPECT_EQ(stored("3"), QString::fromUtf8("NAME|0|12345678|P|F|M|почта@b|00-10-1"));
    EXPECT_EQ(stored("1"), "TECHNICIAN|0|NULL|NULL|NULL|NULL|NULL|-1-1-1-1-1") << "nobody else is touched";
    editor.setText("Password", "");
    editor.setText("EMail", "");
    op.expect(texts(519), kYes);
    save();
    EXPECT_EQ(stored("3"), "NAME|0|NULL|P|F|M|NULL|00-10-1");
}

TEST_F(UserEditorTest, NoKeepsWhatIsTypedAndStoresNothing)
{
    open();
    number("2");
    editor.setText("Name", "OTHER");
    op.expect(texts(519), kNo);
    save();
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(name(), "OTHER");
    EXPECT_TRUE(stored("2").startsWith("GUEST"));
    op.expect(texts(519), kNo);
    editor.Next_Item();
    EXPECT_EQ(name(), "TECHNICIAN");
    EXPECT_FALSE(editor.Changed()) << "the edit is dropped";
}

TEST_F(UserEditorTest, WithoutAChangeNothingIsAsked)
{
    open();
    save();
    editor.First_Item();
    save();
    editor.New_Item();
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(UserEditorTest, EachChangeIsAskedFor)
{
    open();
    for (const char* column : {"IDUser", "Name", "Password", "Phone", "Fax", "MobilePhone", "EMail"}) {
        editor.Load();
        editor.setText(column, "X");
        EXPECT_TRUE(editor.Changed()) << column;
    }
    editor.Load();
    editor.setState(1);
    EXPECT_TRUE(editor.Changed());
    editor.Load();
    editor.setRight("ReadWrite", true);
    EXPECT_TRUE(editor.Changed());
}

TEST_F(UserEditorTest, NumberAndNameAreNeeded)
{
    open();
    editor.setText("Name", "SOMEBODY");
    expectRefusal(522);
    number("44");
    editor.setText("Name", "");
    expectRefusal(522);
    EXPECT_EQ(editor.text("IDUser"), "44");
}

TEST_F(UserEditorTest, ANewNumberLiesBetween1And9999)
{
    open();
    const struct
    {
        const char* number;
        int text;
    } rows[] = {{"abc", 520}, {"1A", 520}, {"1.5", 520}, {"1E2", 520}, {" 7", 520},    {"--5", 520},
                {"0x1", 520}, {"00", 521}, {"-5", 521},  {"-0", 521},  {"10000", 521}, {"99999999", 521}};
    for (const auto& row : rows) {
        editor.Load();
        editor.setText("IDUser", row.number);
        editor.setText("Name", "SOMEBODY");
        SCOPED_TRACE(row.number);
        expectRefusal(row.text);
    }
    for (const char* number : {"1000", "9999", "10"}) {
        editor.Load();
        editor.setText("IDUser", number);
        editor.setText("Name", number);
        op.expect(texts(519), kYes);
        save();
        EXPECT_FALSE(stored(number).isEmpty());
    }
    EXPECT_EQ(session.rsUsers.RecordCount(), 7);
}

TEST_F(UserEditorTest, TheNumberZeroIsTheAdministratorsAlone)
{
    runOnPlant("DELETE FROM tbUsers WHERE IDUser = '0'");
    ASSERT_TRUE(connectTo("Plant.mdb"));
    users::requery(session);
    editor.Load();
    editor.setText("IDUser", "0");
    editor.setText("Name", "SOMEBODY");
    expectRefusal(521);
}

TEST_F(UserEditorTest, ANumberTwiceFailsAndNothingIsLost)
{
    open();
    editor.setText("IDUser", "02");
    editor.setText("Name", "SOMEBODY");
    op.expect(texts(519), kYes);
    EXPECT_FALSE(editor.Update_Item());
    const auto told = failures.take();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].procedure, "frmUsers/Update_Item");
    EXPECT_EQ(told[0].description, texts.own("user.twice").arg("2"));
    EXPECT_EQ(name(), "SOMEBODY");
    EXPECT_TRUE(editor.Changed());
    EXPECT_TRUE(stored("2").startsWith("GUEST"));
}

TEST_F(UserEditorTest, ANumberThatAnotherProgramTookMeanwhileFailsToo)
{
    open();
    editor.setText("IDUser", "50");
    editor.setText("Name", "SOMEBODY");
    runOnPlant("INSERT INTO tbUsers (IDUser, Name) VALUES ('50', 'FIRST')");
    op.expect(texts(519), kYes);
    EXPECT_FALSE(editor.Update_Item());
    failures.expectOne(platform::errors::kDatabase, "frmUsers/Update_Item");
    EXPECT_TRUE(stored("50").startsWith("FIRST"));
}

TEST_F(UserEditorTest, OfTheAdministratorOnlyThePasswordIsStored)
{
    open();
    number("0");
    EXPECT_FALSE(editor.controlsEnabled());
    editor.setText("Name", "BOSS");
    editor.setText("Phone", "1");
    editor.setRight("Modify", true);
    editor.setState(1);
    editor.setText("Password", "top");
    op.expect(texts(519), kYes);
    save();
    EXPECT_EQ(stored("0"), "ADMINISTRATOR|0|top|NULL|NULL|NULL|NULL|00000");
    EXPECT_EQ(name(), "ADMINISTRATOR") << "what is shown is what is stored";
    number("1");
    EXPECT_TRUE(editor.controlsEnabled());
}

// The number typed over the administrator's is another operator's: the record "0" stays what it is.
TEST_F(UserEditorTest, ANumberTypedOverARecordNeverOverwritesIt)
{
    open();
    for (const char* over : {"0", "2"}) {
        number(over);
        const QString before = stored(over);
        editor.setText("IDUser", QString("6") + over);
        editor.setText("Name", "NEW");
        op.expect(texts(519), kYes);
        save();
        EXPECT_EQ(stored(over), before);
        EXPECT_TRUE(stored(QString("6") + over).startsWith("NEW"));
    }
}

TEST_F(UserEditorTest, ANumberThatNobodyHasIsReadyForANewRecord)
{
    open();
    number("0");
    number("88");
    EXPECT_TRUE(editor.NewRecord());
    EXPECT_TRUE(editor.controlsEnabled());
    EXPECT_EQ(editor.text("IDUser"), "88");
}

TEST_F(UserEditorTest, AnEmptyNumberEmptiesTheFields)
{
    open();
    number("2");
    editor.setText("Name", "OTHER");
    number("");
    EXPECT_EQ(name(), "");
    EXPECT_TRUE(editor.NewRecord());
    EXPECT_FALSE(editor.Changed());
    EXPECT_TRUE(lookup.typed == QStringList{"2"}) << "the list isn't asked for nothing";
}

TEST_F(UserEditorTest, PassingThroughTheNumberKeepsWhatIsTyped)
{
    open();
    number("2");
    editor.setText("Name", "OTHER");
    editor.enterIDUser();
    editor.txtIDUser_LostFocus();
    EXPECT_EQ(name(), "OTHER");
    EXPECT_TRUE(editor.Changed());
}

TEST_F(UserEditorTest, TheListIsAskedWithTheNumberAndGivesTheRecord)
{
    open();
    lookup.chosen = "2";
    number("*");
    EXPECT_EQ(lookup.typed, QStringList{"*"});
    EXPECT_EQ(lookup.ZoomSet.Caption, texts(46));
    EXPECT_EQ(lookup.ZoomSet.Connection, session.ConnectionString);
    EXPECT_EQ(lookup.ZoomSet.Select, "SELECT IDUser AS ID, Name AS Name FROM tbUsers");
    EXPECT_EQ(lookup.ZoomSet.KeyField, "IDUser");
    EXPECT_EQ(lookup.ZoomSet.NameField, "Name");
    EXPECT_EQ(lookup.ZoomSet.OrderBy, "IDUser");
    EXPECT_EQ(lookup.ZoomSet.Where + lookup.ZoomSet.GroupBy, "");
    EXPECT_EQ(name(), "GUEST");
}

TEST_F(UserEditorTest, ACancelledListPutsTheNumberBack)
{
    open();
    number("2");
    lookup.chosen.clear();
    number("1*");
    EXPECT_EQ(editor.text("IDUser"), "2");
    EXPECT_EQ(name(), "GUEST");
    EXPECT_FALSE(editor.NewRecord());
}

TEST_F(UserEditorTest, DeletesAfterAQuestion)
{
    open();
    number("2");
    op.expect(texts(506), kNo);
    editor.Delete_Item();
    EXPECT_FALSE(stored("2").isEmpty());
    op.expect(texts(506), kYes);
    editor.Delete_Item();
    EXPECT_TRUE(stored("2").isEmpty());
    EXPECT_EQ(session.rsUsers.RecordCount(), 3);
    EXPECT_TRUE(editor.NewRecord());
    EXPECT_EQ(name(), "");
    editor.Next_Item();
    EXPECT_EQ(name(), "FORMER") << "the first was current";
}

TEST_F(UserEditorTest, WhatIsChangedIsAskedForBeforeADeletion)
{
    open();
    number("2");
    editor.setText("Name", "OTHER");
    op.expect(texts(519), kYes);
    op.expect(texts(506), kNo);
    editor.Delete_Item();
    EXPECT_TRUE(stored("2").startsWith("OTHER"));
}

TEST_F(UserEditorTest, TheAdministratorAndWhoIsNotStoredAreNotDeleted)
{
    open();
    op.expect(texts(531));
    editor.Delete_Item(); // empty
    number("0");
    op.expect(texts(531));
    editor.Delete_Item();
    editor.New_Item();
    number("66");
    editor.setText("Name", "NEW");
    op.expect(texts(519), kNo);
    op.expect(texts(531));
    editor.Delete_Item();
    number("2");
    editor.setText("Name", "");
    op.expect(texts(519), kNo);
    op.expect(texts(531));
    editor.Delete_Item();
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
    number("2");
    editor.setText("IDUser", "1"); // typed, not looked for yet
    op.expect(texts(519), kNo);
    op.expect(texts(531));
    editor.Delete_Item();
    EXPECT_EQ(support::column(plantFile(), "SELECT Count(*) FROM tbUsers"), QStringList{"4"});
}

TEST_F(UserEditorTest, NewEmptiesTheFieldsAndGoesToTheNumber)
{
    open();
    number("2");
    editor.New_Item();
    EXPECT_EQ(focus, "txtIDUser");
    EXPECT_TRUE(editor.NewRecord());
    EXPECT_EQ(editor.text("Password"), "");
}

TEST_F(UserEditorTest, ARefusalKeepsTheFieldsOnEveryWayOn)
{
    open();
    const auto refusedBy = [this](const std::function<void()>& way) {
        editor.Load();
        editor.setText("Name", "SOMEBODY");
        op.expect(texts(519), kYes);
        op.expect(texts(522));
        way();
        EXPECT_EQ(name(), "SOMEBODY");
    };
    refusedBy([this] { editor.New_Item(); });
    refusedBy([this] { editor.First_Item(); });
    refusedBy([this] { editor.Refresh_Item(); });
    refusedBy([this] { EXPECT_FALSE(editor.Exit()); });
    editor.Load();
    EXPECT_TRUE(editor.Exit());
}

TEST_F(UserEditorTest, RefreshReadsWhatOthersStored)
{
    open();
    number("2");
    runOnPlant("UPDATE tbUsers SET Name = 'VISITOR' WHERE IDUser = '2'");
    editor.Refresh_Item();
    EXPECT_EQ(name(), "VISITOR");
}

TEST_F(UserEditorTest, WhoIsGoneMeanwhileIsTold)
{
    open();
    number("2");
    runOnPlant("DELETE FROM tbUsers WHERE IDUser = '2'");
    editor.setText("Name", "OTHER");
    op.expect(texts(519), kYes);
    EXPECT_FALSE(editor.Update_Item());
    const auto told = failures.take();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].description, texts.own("user.gone").arg("2"));
    EXPECT_EQ(name(), "OTHER");
    op.expect(texts(519), kNo);
    op.expect(texts(506), kYes);
    editor.Delete_Item();
    failures.expectUnder("frmUsers/Delete_Item");
}

TEST_F(UserEditorTest, ALockedCompanyKeepsWhatIsTyped)
{
    open();
    number("2");
    editor.setText("Name", "OTHER");
    {
        SQLite::Database other(plantFile().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        op.expect(texts(519), kYes);
        EXPECT_FALSE(editor.Update_Item());
        other.exec("ROLLBACK");
    }
    failures.expectUnder("frmUsers/Update_Item");
    EXPECT_EQ(name(), "OTHER");
    op.expect(texts(519), kYes);
    save();
    EXPECT_TRUE(stored("2").startsWith("OTHER"));
}

// The operator takes the first printer.
TEST_F(UserEditorTest, PrintsTheRecordShown)
{
    runOnPlant("UPDATE tbUsers SET Phone = '055', EMail = 'a@b' WHERE IDUser = '3'");
    open();
    op.onModal = [this](const QString&) { printing.choose(printing.printers()[0].name, 1); };
    number("3");
    editor.PrintItem();
    ASSERT_EQ(printers.jobs.size(), 1u);
    ASSERT_EQ(printers.jobs[0].pages.size(), 1u);
    EXPECT_EQ(printers.jobs[0].pages[0].mid(0, 14),
              (QStringList{QString(80, '*'), QString(32, ' ') + "Calidora - Customer Users", QString(80, '-'),
                           "ID: 3", "User: FORMER", "Phone: 055", "Mobile phone: ", "E-Mail: a@b",
                           "State: DISABLED", "Upgrade database        : ON", "Settings        : ON",
                           "Modify  : ON", "Event Viewer    : ON", "Read/Write      : ON"}));
    editor.New_Item();
    op.expect(texts(570));
    editor.PrintItem();
    EXPECT_EQ(printers.jobs.size(), 1u);
}

TEST_F(UserEditorTest, PrintsAllOnNumberedPagesAndStaysOnItsRecord)
{
    for (int user = 10; user < 40; ++user)
        runOnPlant(QString("INSERT INTO tbUsers (IDUser, Name) VALUES ('%1', 'USER%1')").arg(user));
    open();
    op.onModal = [this](const QString&) { printing.choose(printing.printers()[0].name, 1); };
    number("2");
    editor.Print_List_Items();
    ASSERT_EQ(printers.jobs.size(), 1u);
    const auto& pages = printers.jobs[0].pages;
    ASSERT_GT(pages.size(), 3u);
    int records = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        EXPECT_EQ(pages[page].value(0), QString(80, '*'));
        EXPECT_EQ(pages[page].last().trimmed(), "Page " + QString::number(page + 1));
        records += int(pages[page].filter(QRegularExpression("^ID: ")).size());
        EXPECT_TRUE(pages[page].value(3).startsWith("ID: ")) << "no empty line at the top";
    }
    EXPECT_EQ(records, 34);
    EXPECT_EQ(name(), "GUEST");
    editor.Next_Item();
    EXPECT_EQ(name(), "TECHNICIAN");
}

TEST_F(UserEditorTest, AFailureStandsUnderItsProceduresName)
{
    open();
    number("2");
    session.cnDatabase.Execute("DROP TABLE tbUsers");
    editor.Refresh_Item();
    failures.expectUnder("frmUsers/Refresh_Item");
    session.rsUsers.Close();
    session.rsUsers.Open("SELECT 'x' AS Name", session.cnDatabase);
    const std::pair<const char*, void (users::UserEditor::*)()> moves[] = {
        {"frmUsers/First_Item", &users::UserEditor::First_Item},
        {"frmUsers/Last_Item", &users::UserEditor::Last_Item},
        {"frmUsers/Next_Item", &users::UserEditor::Next_Item},
        {"frmUsers/Prev_Item", &users::UserEditor::Prev_Item}};
    for (const auto& [name, move] : moves) {
        (editor.*move)();
        failures.expectUnder(name);
    }
    editor.Print_List_Items();
    failures.expectUnder("frmUsers/Print_List_Items");
    number("9");
    failures.expectUnder("frmUsers/Search_Item");
    editor.setText("IDUser", "8");
    session.Language = session::LanguageSettings::fromIdentifier(support::kNoLanguage);
    editor.txtIDUser_LostFocus();
    failures.expectUnder("frmUsers.txtIDUser_LostFocus");
    editor.New_Item();
    failures.expectUnder("frmUsers/Update_Item");
    editor.PrintItem();
    failures.expectUnder("frmUsers/PrintItem");
}

} // namespace
