#include "widgets/FormLanguage.h"

#include "gui/GuiFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <map>

namespace {

using widgets::tagged;

class Language : public gui::GuiFixture
{
protected:
    bool apply(QWidget& form) { return widgets::Set_Language(form, session, texts, desktop); }
};

TEST_F(Language, APositiveTagIsTheCaptionAndANegativeOneTheTipToo)
{
    QWidget form;
    auto* plain = tagged(new QLabel("-", &form), "plain", "59");
    plain->setToolTip("own");
    auto* both = tagged(new QPushButton("-", &form), "both", "-59");
    auto* untouched = tagged(new QCheckBox("own", &form), "untouched", "");
    ASSERT_TRUE(apply(form));
    EXPECT_EQ(plain->text(), texts(59));
    EXPECT_EQ(plain->toolTip(), "own");
    EXPECT_EQ(both->text(), texts(59));
    EXPECT_EQ(both->toolTip(), texts(60));
    EXPECT_EQ(untouched->text(), "own");
}

TEST_F(Language, AnEmptyCaptionStaysEmptyAndStillGetsItsTip)
{
    QWidget form;
    auto* label = tagged(new QLabel(&form), "label", "-59");
    auto* frame = tagged(new QGroupBox(&form), "frame", "265");
    ASSERT_TRUE(apply(form));
    EXPECT_EQ(label->text(), "");
    EXPECT_EQ(label->toolTip(), texts(60));
    EXPECT_EQ(frame->title(), "");
}

TEST_F(Language, InputsTakeATipAndTabbedDialogsTheirCaptionsInARow)
{
    QWidget form;
    auto* edit = tagged(new QLineEdit("typed", &form), "edit", "35");
    auto* combo = tagged(new QComboBox(&form), "combo", "-35");
    auto* tabs = tagged(new QTabWidget(&form), "tabs", "28");
    for (int tab = 0; tab < 3; ++tab)
        tabs->addTab(new QWidget, "-");
    ASSERT_TRUE(apply(form));
    EXPECT_EQ(edit->toolTip(), texts(35));
    EXPECT_EQ(edit->text(), "typed");
    EXPECT_EQ(combo->toolTip(), texts(35));
    EXPECT_EQ(tabs->tabText(0), texts(28));
    EXPECT_EQ(tabs->tabText(2), texts(30));
}

TEST_F(Language, TheFormsOwnTagIsTheWindowsCaption)
{
    QWidget form;
    form.setProperty(widgets::kTag, "274");
    ASSERT_TRUE(apply(form));
    EXPECT_EQ(form.windowTitle(), "Calidora\\Read/Write");
}

TEST_F(Language, TheCharacterSetIsKeptOnFormAndControlsButNotOnTheMainWindow)
{
    session.Charset = 204;
    QWidget form, main;
    main.setObjectName("frmMain");
    auto* label = new QLabel(&form);
    apply(form);
    apply(main);
    EXPECT_EQ(form.property(widgets::kCharset), 204);
    EXPECT_EQ(label->property(widgets::kCharset), 204);
    EXPECT_FALSE(main.property(widgets::kCharset).isValid());
}

TEST_F(Language, ABadTagFailsAndLeavesTheRestInItsFormerLanguage)
{
    QWidget form;
    auto* bad = tagged(new QLabel("-", &form), "bad", "text");
    auto* behind = tagged(new QLabel("former", &form), "behind", "13");
    EXPECT_FALSE(apply(form));
    failures.expectOne(platform::errors::kTypeMismatch, "Module/Set_Language");
    EXPECT_EQ(bad->text(), "-");
    EXPECT_EQ(behind->text(), "former");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Language, SwitchingRelabelsEveryOpenWindowAtOnce)
{
    start();
    clickNode("Root");
    desktop.showForm("frmReadLogFiles");
    auto* warning = desktop.form("frmReadLogFiles")->findChild<QLabel*>("lblWarning");
    const QString before = warning->text();
    for (const char* identifier : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(identifier, desktop.loadedForms(), session, texts, desktop);
        EXPECT_EQ(session.Language.ID, identifier);
        EXPECT_EQ(entry("frmTreeBus", "mnuOpenDb")->text(), texts(110));
        EXPECT_EQ(desktop.form("frmListBus")->findChild<QMenu*>("mnuFile")->title(), texts(108));
        EXPECT_EQ(button("Refresh")->toolTip(), texts(234) + " (F5)");
        EXPECT_EQ(control<QWidget>("Allarm")->toolTip(), texts(290));
        EXPECT_EQ(control<QPushButton>("emptyOpen")->text(), texts.own("empty.open"));
        EXPECT_EQ(plant().list().columnCaptions(), (QStringList{texts(102), texts(106), texts(103)}));
        EXPECT_EQ(window()->windowTitle(),
                  "Calidora - " + texts(156) + " Plant.mdb - " + texts(59) + " TECHNICIAN");
        EXPECT_EQ(warning->text(), texts(144));
    }
    EXPECT_EQ(warning->text(), before);
}

TEST_F(Language, TheWindowsBesideTheMainOneFollowASwitchWhileTheyAreOpen)
{
    start();
    clickNode("1_1");
    desktop.showForm("frmFind");
    desktop.showForm("frmPending");
    plant().pressItem("2_1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        for (const char* identifier : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
            widgets::SetLanguage_AllForms(identifier, desktop.loadedForms(), session, texts, desktop);
            const auto title = [&](const char* form) { return desktop.form(form)->windowTitle(); };
            EXPECT_EQ(title("frmFind"), "Calidora\\" + texts.own("find.title"));
            EXPECT_EQ(title("frmPending"), "Calidora\\" + texts.own("pending.title"));
            EXPECT_EQ(title("frmReadWrite"), "Calidora\\" + texts(274));
            const auto* lines = console.findChild<QTreeView*>("lvwItems")->model();
            EXPECT_EQ(lines->headerData(0, Qt::Horizontal).toString(), texts(241));
            const auto* writes = desktop.form("frmPending")->findChild<QTreeView*>("lvwPending")->model();
            EXPECT_EQ(writes->headerData(1, Qt::Horizontal).toString(), texts(107));
        }
    });
    program.handlers().run("ReadWrite");
    EXPECT_EQ(played, 1);
}

TEST_F(Language, TheWordsOfACallFollowASwitch)
{
    start();
    const auto info = [this] { return program.panels().text(bus::Panel::Info); };
    const auto follows = [&](int text) {
        for (const char* identifier : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
            widgets::SetLanguage_AllForms(identifier, desktop.loadedForms(), session, texts, desktop);
            EXPECT_EQ(info(), texts(text)) << identifier;
        }
    };
    port.feed("RING");
    clock.run(0);
    follows(555);
    clock.run(4000);
    port.feed("CONNECT");
    port.feed("<Plant><Unit><Alarm>");
    clock.run(6000);
    port.feed("<Plant><End>");
    clock.run(15000);
    ASSERT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kAlarm);
    failures.take();
    follows(582);
}

// A configuration that somebody spoiled: every fetch fails and is told, no company opens, but the window
// stands and a language chosen there makes it whole.
TEST_F(Language, ABaseWithoutABlockLeavesAWindowWithoutWords)
{
    setLanguage("FR_Francais_3000");
    start();
    std::map<QString, int> told;
    for (const platform::Failure& failure : failures.take())
        ++told[failure.procedure];
    EXPECT_EQ(told, (std::map<QString, int>{{"Module/Connect_Database", 1},
                                            {"Module/Set_ColName_ListBus", 1},
                                            {"Module/Set_Language", 4}}));
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());
    EXPECT_EQ(session.DbName, "");
    widgets::SetLanguage_AllForms("EN_English_2000", desktop.loadedForms(), session, texts, desktop);
    EXPECT_EQ(button("OpenDb")->toolTip(), texts(165));
    desktop.script.chooseFile(plantFile());
    button("OpenDb")->trigger();
    clickNode("1_1");
    EXPECT_EQ(listKeys(), (QStringList{"2_1_2", "2_1_1"}));
}

TEST_F(Language, WithoutABlockAWindowKeepsTheCaptionItWasDrawnWith)
{
    const struct
    {
        const char* form;
        const char* caption;
        const char* command = nullptr; // without one it is asked for by name
    } kWindows[] = {
        {"frmSettings", "\\Impostazioni"},
        {"frmInfo", "\\Informazioni"},
        {"frmEventFilter", "\\Filtro Eventi"},
        {"frmEventViewer", "\\Visualizzatore Eventi"},
        {"frmUsers", "\\Anagrafica Operatori"},
        {"frmLogInOut", "\\Login-Logout"},
        {"frmProperty", "\\Proprietà", "PropertyNode"},
        {"frmReadWrite", "\\Leggi/Scrivi", "ReadWriteNode"},
        {"frmUpgrade", "\\Aggiornamento Database"},
        {"frmLanguage", "\\Language setting"},
        {"frmMessage", ""},
    };
    start();
    clickNode("1_1");
    session.Language = session::LanguageSettings::fromIdentifier("FR_Francais_3000");
    for (const auto& way : kWindows) {
        const int before = played;
        inside(way.form, [&](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), session.AppTitle + way.caption) << way.form;
        });
        if (way.command)
            program.handlers().run(way.command);
        else
            desktop.platform::DesktopOperator::showFormModal(way.form);
        EXPECT_EQ(played, before + 1) << way.form;
    }
    EXPECT_FALSE(failures.take().empty());
    desktop.script.unexpected.clear(); // what the windows say of that
    setLanguage("EN_English_2000");
}

TEST_F(Language, AnIdentifierThatIsNoneFailsUnderItsProceduresName)
{
    widgets::SetLanguage_AllForms("X", {}, session, texts, desktop);
    failures.expectUnder("frmSettings/SetLanguage_AllForms");
    EXPECT_EQ(session.Language.Code, "EN");
    inside("frmLanguage", [&](QDialog& dialog) {
        dialog.findChild<QComboBox*>("imcLanguage")->setCurrentIndex(-1);
        QTest::mouseClick(dialog.findChild<QWidget*>("cmdApply"), Qt::LeftButton);
        failures.expectUnder("frmLanguage.cmdApply_Click");
        EXPECT_TRUE(dialog.isVisible());
    });
    start();
    desktop.showFormModal("frmLanguage");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(session.Language.Code, "EN");
}

TEST_F(Language, WhatQtItselfSaysFollows)
{
    const auto question = [] {
        return QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?");
    };
    const auto speak = [&](const char* identifier) {
        QWidget form;
        session.Language = session::LanguageSettings::fromIdentifier(identifier);
        EXPECT_TRUE(widgets::Set_Language(form, session, texts, desktop));
    };
    const QString english = question();
    speak("IT_Italiano_1000");
    EXPECT_TRUE(question().contains("esiste")) << question().toStdString();
    EXPECT_NE(QCoreApplication::translate("QWidgetTextControl", "&Copy"), "&Copy");
    speak("RU_Russian_6000");
    EXPECT_TRUE(question().contains("существует")) << question().toStdString();
    speak("RU_Russian_6000");
    EXPECT_TRUE(question().contains("существует"));
    speak("EN_English_2000");
    EXPECT_EQ(question(), english);
    EXPECT_EQ(QCoreApplication::translate("QWidgetTextControl", "&Copy"), "&Copy");
}

TEST_F(Language, TheFirstRunsDialogOffersWhatHasABlock)
{
    QStringList offered;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->windowTitle(), "Calidora\\Language setting");
        auto* list = dialog->findChild<QComboBox*>("imcLanguage");
        for (int row = 0; row < list->count(); ++row)
            offered << list->itemData(row).toString();
        EXPECT_EQ(list->currentData(), "EN_English_2000");
        list->setCurrentIndex(2);
        QTest::mouseClick(dialog->findChild<QWidget*>("cmdApply"), Qt::LeftButton);
    });
    desktop.showFormModal("frmLanguage");
    EXPECT_EQ(offered, (QStringList{"IT_Italiano_1000", "EN_English_2000", "RU_Russian_6000"}));
    EXPECT_EQ(session.Language.Code, "RU");
    EXPECT_EQ(session.Language.Base, "6000");
}

} // namespace
