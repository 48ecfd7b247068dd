#include "gui/GuiFixture.h"
#include "support/NamedFailure.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <functional>

namespace {

class Property : public gui::GuiFixture
{
protected:
    void insideProperty(const std::function<void(QDialog&)>& work) { inside("frmProperty", work); }

    void openByKey(const QString& node, const QString& key)
    {
        clickNode(node);
        clickItem(key);
        QTest::keyClick(shownList(), Qt::Key_Return);
    }
    static QLineEdit* field(QDialog& dialog, const QString& name)
    {
        return dialog.findChild<QLineEdit*>(name);
    }
    static QPushButton* pushButton(QDialog& dialog, const QString& name)
    {
        return dialog.findChild<QPushButton*>(name);
    }
    static void press(QDialog& dialog, const QString& name)
    {
        QTest::mouseClick(pushButton(dialog, name), Qt::LeftButton);
    }
    QString shownValue(const QString& key) { return plant().list().item(key)->subtext; }
};

TEST_F(Property, AParameterIsChangedByMouseAndKeyboard)
{
    start();
    clickNode("3_1_2_G11");
    insideProperty([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Proprietà");
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        EXPECT_TRUE(txtVal1->hasFocus()) << QApplication::focusWidget()->objectName().toStdString();
        EXPECT_EQ(txtVal1->selectedText(), "4.5");
        EXPECT_FALSE(pushButton(dialog, "cmdApply")->isEnabled());
        EXPECT_TRUE(pushButton(dialog, "cmdOK")->isDefault());
        type(txtVal1, "20a.x2");
        EXPECT_EQ(txtVal1->text(), "20.2") << "letters are dropped";
        EXPECT_TRUE(pushButton(dialog, "cmdApply")->isEnabled());
        press(dialog, "cmdApply");
        EXPECT_EQ(txtVal1->text(), "20.5");
        EXPECT_FALSE(pushButton(dialog, "cmdApply")->isEnabled());
        EXPECT_EQ(shownValue("4_1_2_G11_P1101"), "20.5 °C") << "behind the open dialog";
        type(txtVal1, "21");
        QTest::keyClick(txtVal1, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    openItem("4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(desktop.form("frmProperty"));
    EXPECT_EQ(shownValue("4_1_2_G11_P1101"), "21.0 °C");
    EXPECT_EQ(plant().list().item("4_1_2_G11_P1101")->icon, 6);
}

TEST_F(Property, EscapeRestoresTheFieldFirstAndClosesThen)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        type(txtVal1, "7");
        QTest::keyClick(txtVal1, Qt::Key_Escape);
        EXPECT_EQ(txtVal1->text(), "4.5");
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(txtVal1, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(shownValue("4_1_2_G11_P1101"), "4.5 °C");
}

TEST_F(Property, NamesAreTypedInCapitalsWhereTheCursorStands)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtValStr1 = field(dialog, "txtValStr1");
        type(txtValStr1, "abжd");
        EXPECT_EQ(txtValStr1->text(), "ABЖD");
        txtValStr1->setCursorPosition(1);
        QTest::keyClick(txtValStr1, 'x');
        EXPECT_EQ(txtValStr1->text(), "AXBЖD");
        EXPECT_EQ(txtValStr1->cursorPosition(), 2);
        press(dialog, "cmdOK");
        EXPECT_FALSE(dialog.isVisible());
    });
    openByKey("Root", "1_1");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(plant().list().item("1_1")->text, "AXBЖD");
    EXPECT_EQ(plant().tree().captionOf("1_1"), "AXBЖD");
}

TEST_F(Property, APasteIsCutToTheLimit)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QApplication::clipboard()->setText(QString(10000, 'X'));
        QLineEdit* txtValStr1 = field(dialog, "txtValStr1");
        txtValStr1->setFocus();
        txtValStr1->selectAll();
        QTest::keyClick(txtValStr1, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(txtValStr1->text(), QString(50, 'X'));
    });
    openByKey("Root", "1_1");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, APasteThatEndsInHalfACharacterDropsItInFieldListAndFile)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QApplication::clipboard()->setText(QString(49, 'X') + QStringLiteral("😀"));
        QLineEdit* txtValStr1 = field(dialog, "txtValStr1");
        txtValStr1->setFocus();
        txtValStr1->selectAll();
        QTest::keyClick(txtValStr1, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(txtValStr1->text(), QString(49, 'X'));
        press(dialog, "cmdOK");
    });
    openByKey("Root", "1_1");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(plant().list().item("1_1")->text, QString(49, 'X'));
    EXPECT_EQ(support::column(plantFile(), "SELECT Name FROM tbGroupsUser WHERE IDGrp = 1"),
              QStringList{QString(49, 'X')});
}

TEST_F(Property, ATextLongerThanItsFieldIsShownWholeAndNeverCutByTheWindow)
{
    runOnPlant(QString("UPDATE tbGroupsUser SET Name = '%1' WHERE IDGrp = 1").arg(QString(60, 'N')));
    runOnPlant("UPDATE tbParametersUser SET Value = '4.123456789012' WHERE IDPar = 'P1101'");
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtValStr1 = field(dialog, "txtValStr1");
        EXPECT_EQ(txtValStr1->text(), QString(60, 'N'));
        txtValStr1->setCursorPosition(0);
        QTest::keyClick(txtValStr1, Qt::Key_Delete);
        EXPECT_EQ(txtValStr1->text(), QString(59, 'N'));
    });
    openByKey("Root", "1_1");
    insideProperty([&](QDialog& dialog) {
        EXPECT_EQ(field(dialog, "txtVal1")->text(), "4.123456789012");
        EXPECT_FALSE(field(dialog, "txtVal1")->isEnabled());
        EXPECT_FALSE(dialog.findChild<QWidget*>("updVal1")->isEnabled());
        EXPECT_TRUE(pushButton(dialog, "cmdOK")->hasFocus());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 2);
}

TEST_F(Property, ATypeAndItsNameAreNoMarkup)
{
    runOnPlant("UPDATE tbInstrumentLanguage SET mDesc = '<B>Showcase</B>' WHERE mID = 'KT200'");
    start();
    insideProperty([&](QDialog& dialog) {
        const auto* label = dialog.findChild<QLabel*>("lblValDescription");
        EXPECT_EQ(label->text(), "KT200 = <B>Showcase</B>");
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_TRUE(label->toolTip().contains("&lt;B&gt;")) << qPrintable(label->toolTip());
    });
    openByKey("1_1", "2_1_2");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, ASpinButtonAtItsEndChangesNothing)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '25' WHERE IDPar = 'P1101'");
    start();
    insideProperty([&](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QWidget*>("updVal1")->findChild<QToolButton*>("up"),
                          Qt::LeftButton);
        EXPECT_EQ(field(dialog, "txtVal1")->text(), "25");
        EXPECT_FALSE(pushButton(dialog, "cmdApply")->isEnabled());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

// The refusal takes the focus from the field that was typed in. That is no leaving: one box, and the focus
// where it is told, whether the posted check comes in behind the box or after it.
TEST_F(Property, ATimeIsRefusedWithOneBoxAndTheFocusAsTold)
{
    start();
    for (const bool behindTheBox : {false, true}) {
        if (behindTheBox)
            desktop.whileABoxStands = [] { QCoreApplication::processEvents(); };
        for (const char* IDPar : {"P0302", "P0303"}) {
            insideProperty([&](QDialog& dialog) {
                QLineEdit* last = field(dialog, IDPar == QString("P0302") ? "txtVal2" : "txtVal3");
                QLineEdit* hours = field(dialog, "txtVal1");
                type(hours, "25");
                desktop.script.expect(texts(530));
                press(dialog, "cmdOK");
                QCoreApplication::processEvents();
                EXPECT_TRUE(desktop.script.done());
                EXPECT_EQ(desktop.script.unexpected, QStringList()) << IDPar << behindTheBox;
                EXPECT_TRUE(last->hasFocus()) << qPrintable(QApplication::focusWidget()->objectName());
                EXPECT_TRUE(dialog.isVisible());
                // Escape puts back what stands in the field that has the focus now.
                const QString before = last->text();
                QTest::keyClick(last, '7');
                EXPECT_EQ(last->text(), "7") << "selected whole";
                QTest::keyClick(last, Qt::Key_Escape);
                EXPECT_EQ(last->text(), before);
            });
            openByKey("3_1_1_G03", QString("4_1_1_G03_%1").arg(IDPar));
        }
    }
    EXPECT_EQ(played, 4);
}

// A field that was refused stays entered: the window system tells of its focus once more when the box has
// gone, and that must not make the refused text the one that Escape brings back.
TEST_F(Property, AFocusThatIsToldLateKeepsTheTextOfTheEntry)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* hours = field(dialog, "txtVal1");
        QLineEdit* minutes = field(dialog, "txtVal2");
        const auto tell = [](QWidget* widget, QEvent::Type type) {
            QFocusEvent event(type, Qt::ActiveWindowFocusReason);
            QApplication::sendEvent(widget, &event);
        };
        type(hours, "24");
        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 23.");
        desktop.whileABoxStands = [&] { tell(minutes, QEvent::FocusOut); };
        QTest::keyClick(hours, Qt::Key_Tab);
        QCoreApplication::processEvents();
        desktop.whileABoxStands = {};
        ASSERT_TRUE(hours->hasFocus());
        tell(hours, QEvent::FocusIn);
        QTest::keyClick(hours, Qt::Key_Escape);
        EXPECT_EQ(hours->text(), "2");
        // The other field is entered afresh when its turn comes.
        QTest::keyClick(hours, Qt::Key_Tab);
        QCoreApplication::processEvents();
        EXPECT_TRUE(minutes->hasFocus());
        EXPECT_EQ(minutes->selectedText(), "30");
    });
    openByKey("3_1_1_G03", "4_1_1_G03_P0302");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, AListWithoutAValueCanBeGivenOne)
{
    runOnPlant("UPDATE tbParametersUser SET Value = NULL WHERE IDPar = 'P0201'");
    start();
    insideProperty([&](QDialog& dialog) {
        failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
        auto* list = dialog.findChild<QComboBox*>("cbxValEnum");
        EXPECT_TRUE(list->hasFocus());
        EXPECT_EQ(list->count(), 3);
        EXPECT_EQ(list->currentIndex(), -1);
        QTest::keyClick(list, Qt::Key_Down);
        EXPECT_EQ(list->currentText(), "Off");
        press(dialog, "cmdOK");
        EXPECT_FALSE(dialog.isVisible());
    });
    openByKey("3_1_1_G02", "4_1_1_G02_P0201");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(shownValue("4_1_1_G02_P0201"), "Off");
}

TEST_F(Property, ASpinButtonChangesTheField)
{
    start();
    insideProperty([&](QDialog& dialog) {
        auto* updVal1 = dialog.findChild<QWidget*>("updVal1");
        QTest::mouseClick(updVal1->findChild<QToolButton*>("up"), Qt::LeftButton);
        EXPECT_EQ(field(dialog, "txtVal1")->text(), "5.5");
        QTest::mouseClick(updVal1->findChild<QToolButton*>("down"), Qt::LeftButton);
        EXPECT_EQ(field(dialog, "txtVal1")->text(), "4.5");
        EXPECT_TRUE(pushButton(dialog, "cmdApply")->isEnabled());
        EXPECT_TRUE(field(dialog, "txtVal1")->hasFocus());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, AWrongFieldKeepsTheFocusButCancelIsFree)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        type(txtVal1, "99");
        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
        QTest::keyClick(txtVal1, Qt::Key_Tab);
        EXPECT_FALSE(txtVal1->hasFocus());
        QCoreApplication::processEvents();
        EXPECT_TRUE(desktop.script.done());
        EXPECT_TRUE(txtVal1->hasFocus());

        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
        press(dialog, "cmdOK");
        QCoreApplication::processEvents();
        EXPECT_TRUE(desktop.script.done()) << "told once";
        EXPECT_TRUE(dialog.isVisible());

        pushButton(dialog, "cmdCancel")->setFocus();
        press(dialog, "cmdCancel");
        QCoreApplication::processEvents();
        EXPECT_FALSE(dialog.isVisible());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(shownValue("4_1_2_G11_P1101"), "4.5 °C");
}

TEST_F(Property, EscapeBehindARefusalStillPutsTheTextBack)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        type(txtVal1, "99");
        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
        QTest::keyClick(txtVal1, Qt::Key_Tab);
        QCoreApplication::processEvents();
        ASSERT_TRUE(txtVal1->hasFocus());
        QTest::keyClick(txtVal1, Qt::Key_Escape);
        EXPECT_EQ(txtVal1->text(), "4.5");
        EXPECT_TRUE(dialog.isVisible());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

// OK refuses it too, and has taken the focus before.
TEST_F(Property, EscapeBehindARefusalByOKPutsTheTextBack)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        type(txtVal1, "99");
        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
        pushButton(dialog, "cmdOK")->setFocus();
        press(dialog, "cmdOK");
        QCoreApplication::processEvents();
        ASSERT_TRUE(txtVal1->hasFocus());
        QTest::keyClick(txtVal1, Qt::Key_Escape);
        EXPECT_EQ(txtVal1->text(), "4.5");
        EXPECT_TRUE(dialog.isVisible());
        // What was accepted is what Escape brings back from then on.
        type(txtVal1, "7");
        QTest::keyClick(txtVal1, Qt::Key_Tab);
        QCoreApplication::processEvents();
        txtVal1->setFocus();
        type(txtVal1, "98");
        desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
        press(dialog, "cmdOK");
        QCoreApplication::processEvents();
        QTest::keyClick(txtVal1, Qt::Key_Escape);
        EXPECT_EQ(txtVal1->text(), "7");
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

// A box of the desktop takes the activation, and the focus is told when it has gone.
TEST_F(Property, EscapeBehindABoxOfTheDesktopPutsTheTextBack)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        for (const bool byOK : {false, true}) {
            type(txtVal1, "99");
            desktop.script.expect(texts(526) + " 0 " + texts(527) + " 25.");
            desktop.whileABoxStands = [&] {
                QMessageBox box(&dialog);
                QTimer::singleShot(150, &box, &QDialog::accept);
                box.exec();
            };
            if (byOK)
                press(dialog, "cmdOK");
            else
                QTest::keyClick(txtVal1, Qt::Key_Tab);
            ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.script.done(); }));
            desktop.whileABoxStands = {};
            dialog.activateWindow(); // as a window manager does of its own
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            ASSERT_TRUE(QTest::qWaitFor([&] { return txtVal1->hasFocus(); }));
            QTest::keyClick(txtVal1, Qt::Key_Escape);
            EXPECT_EQ(txtVal1->text(), "4.5") << (byOK ? "by OK" : "by Tab");
            EXPECT_TRUE(dialog.isVisible());
        }
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, EnterMovesOnAndIsOKOnTheLastField)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* hours = field(dialog, "txtVal1");
        type(hours, "7");
        QTest::keyClick(hours, Qt::Key_Return);
        EXPECT_TRUE(field(dialog, "txtVal2")->hasFocus());
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(field(dialog, "txtVal2")->selectedText(), "30");
        QTest::keyClick(field(dialog, "txtVal2"), Qt::Key_Enter);
        EXPECT_FALSE(dialog.isVisible()) << "the seconds are locked: these are the last";
    });
    openByKey("3_1_1_G03", "4_1_1_G03_P0302");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(shownValue("4_1_1_G03_P0302"), "07:30");
}

TEST_F(Property, AltAndALetterPassNoFilter)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* txtVal1 = field(dialog, "txtVal1");
        txtVal1->selectAll();
        QKeyEvent alt(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier, "x");
        QApplication::sendEvent(txtVal1, &alt);
        EXPECT_EQ(txtVal1->text(), "4.5");
        QKeyEvent thirdLevel(QEvent::KeyPress, Qt::Key_7, Qt::ControlModifier | Qt::AltModifier, "7");
        QApplication::sendEvent(txtVal1, &thirdLevel);
        EXPECT_EQ(txtVal1->text(), "7");
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, ItIsHeadedByWhatItIsAndWhere)
{
    start();
    insideProperty([&](QDialog& dialog) {
        const auto label = [&](const char* name) { return dialog.findChild<QLabel*>(name); };
        EXPECT_EQ(label("lblTitle")->text(), label("lblValDescription")->text());
        EXPECT_TRUE(label("lblTitle")->font().bold());
        EXPECT_EQ(label("lblPath")->text(), QString("ZEL Bus\\GRP1\\ALPHA\\%1")
                                                .arg(plant().tree().captionOf("3_1_2_G11"))
                                                .replace('\\', QStringLiteral(" \u203a ")));
        EXPECT_EQ(label("lblUnit")->text(), "°C");
        EXPECT_EQ(label("lblRange1")->text(), "0 ... 25 °C");
        EXPECT_TRUE(label("lblStandard")->text().startsWith("Default: "))
            << qPrintable(label("lblStandard")->text());
        EXPECT_TRUE(label("lblStandard")->text().endsWith("°C")) << qPrintable(label("lblStandard")->text());
        EXPECT_FALSE(label("lblDisabledWhy")->isVisible());
        for (const char* name :
             {"lblTitle", "lblPath", "lblUnit", "lblStandard", "lblDisabledWhy", "lblWholeAddress"})
            EXPECT_EQ(label(name)->textFormat(), Qt::PlainText) << name;
        // What the catalogue says stands above its details, in line with them.
        const QRect words = label("lblValDescription")->geometry();
        const QRect below = label("lblMemory")->geometry();
        EXPECT_LT(words.bottom(), below.top());
        EXPECT_EQ(words.left(), below.left());
        EXPECT_GE(words.width(), label("lblValDescription")->sizeHint().width());
        nothingIsClipped(dialog);
        picture(dialog, "property-real");
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    runOnPlant("UPDATE tbParam SET mEnable = 0 WHERE mID = 'P1101'");
    desktop.script.expect(texts(503), platform::answers::kYes);
    program.handlers().run("CloseDb");
    desktop.script.chooseFile(plantFile());
    program.handlers().run("OpenDb");
    insideProperty([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("lblDisabledWhy")->text(),
                  "by the catalogue: it can only be read");
        picture(dialog, "property-disabled");
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 2);
}

TEST_F(Property, AnAddressIsShownWholeAndADuplicateWarnedOf)
{
    start();
    insideProperty([&](QDialog& dialog) {
        const auto label = [&](const char* name) { return dialog.findChild<QLabel*>(name); };
        QLineEdit* digit = field(dialog, "txtVal3");
        EXPECT_EQ(label("lblWholeAddress")->text(), "address: 2A");
        EXPECT_FALSE(label("lblWarning")->isVisible());
        type(digit, "5");
        EXPECT_EQ(label("lblWholeAddress")->text(), "address: 25");
        runOnPlant("UPDATE tbInstrumentsUser SET Address = '2f' WHERE IDGrp = 1 AND IDInst = 1");
        type(digit, "15");
        EXPECT_EQ(label("lblWarning")->text(),
                  "The address 2F is also that of: INST11. Only one of them can answer.");
        EXPECT_TRUE(label("lblWarning")->isVisible());
        nothingIsClipped(dialog);
        picture(dialog, "property-address");
        type(digit, "16");
        EXPECT_FALSE(label("lblWholeAddress")->isVisible()) << "there is no such digit";
        EXPECT_FALSE(label("lblWarning")->isVisible());
        type(digit, "15");
        press(dialog, "cmdOK");
        EXPECT_FALSE(dialog.isVisible()) << "a warning refuses nothing";
    });
    openByKey("1_1", "2_1_2");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(plant().list().item("2_1_2")->subtext, "2F");
}

TEST_F(Property, AnEditableFieldIsWhiteAndALockedOneAsItsFrame)
{
    start();
    insideProperty([&](QDialog& dialog) {
        const auto colourIn = [&](const QWidget* widget, const QPoint& place) {
            return dialog.grab().toImage().pixelColor(widget->mapTo(&dialog, place));
        };
        const auto* frame = dialog.findChild<QWidget*>("fraVal");
        const QPoint inside(6, 4);
        EXPECT_EQ(colourIn(field(dialog, "txtVal1"), inside), QColor(Qt::white));
        EXPECT_EQ(colourIn(field(dialog, "txtVal2"), inside),
                  colourIn(frame, frame->rect().bottomRight() - QPoint(8, 8)));
    });
    openByKey("3_1_1_G03", "4_1_1_G03_P0301");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, ALeftFieldShowsItsBeginningAndAClickedOneIsSelectedWhole)
{
    start();
    insideProperty([&](QDialog& dialog) {
        QLineEdit* hours = field(dialog, "txtVal1");
        QLineEdit* minutes = field(dialog, "txtVal2");
        QTest::mouseClick(minutes, Qt::LeftButton);
        QCoreApplication::processEvents();
        EXPECT_EQ(minutes->selectedText(), "30");
        EXPECT_EQ(hours->cursorPosition(), 0);
        EXPECT_FALSE(hours->hasSelectedText());
    });
    openByKey("3_1_1_G03", "4_1_1_G03_P0302");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, AListWithoutAChoiceKeepsTheFocusWithoutAWord)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '55' WHERE IDPar = 'P0201'");
    start();
    insideProperty([&](QDialog& dialog) {
        auto* list = dialog.findChild<QComboBox*>("cbxValEnum");
        EXPECT_EQ(list->currentIndex(), -1);
        QTest::keyClick(list, Qt::Key_Tab);
        QCoreApplication::processEvents();
        EXPECT_TRUE(list->hasFocus());
    });
    openByKey("3_1_1_G02", "4_1_1_G02_P0201");
    EXPECT_EQ(played, 1);
}

TEST_F(Property, AListIsPickedByMouseOrKey)
{
    start();
    insideProperty([&](QDialog& dialog) {
        auto* cbxValEnum = dialog.findChild<QComboBox*>("cbxValEnum");
        EXPECT_TRUE(cbxValEnum->hasFocus());
        EXPECT_EQ(cbxValEnum->currentText(), "On");
        QTest::keyClick(cbxValEnum, Qt::Key_Up);
        EXPECT_EQ(cbxValEnum->currentText(), "Off");
        EXPECT_TRUE(pushButton(dialog, "cmdApply")->isEnabled());
        press(dialog, "cmdOK");
    });
    openByKey("3_1_1_G02", "4_1_1_G02_P0201");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(shownValue("4_1_1_G02_P0201"), "Off");
}

TEST_F(Property, TheTreeOpensItsOwnNode)
{
    start();
    clickNode("1_1");
    insideProperty([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("lblIDPar")->text(), "GRP_1");
        type(field(dialog, "txtValStr1"), "north");
        press(dialog, "cmdOK");
    });
    entry("frmTreeBus", "mnuProperty")->trigger();
    EXPECT_EQ(played, 1);
    EXPECT_EQ(control<QLabel>("lblPath")->text(), "ZEL Bus\\NORTH");
    EXPECT_EQ(plant().selectedNode(), "1_1");
}

TEST_F(Property, NothingSelectedOpensNothing)
{
    start();
    clickNode("Root");
    entry("frmListBus", "mnuProperty")->trigger();
    EXPECT_FALSE(desktop.form("frmProperty"));
    EXPECT_TRUE(failures.failures().empty());
}

class PropertyInLanguage : public Property, public testing::WithParamInterface<const char*>
{
};

TEST_P(PropertyInLanguage, EveryLevelAndKindShowsOnlyWhatItNeeds)
{
    const struct
    {
        const char* node;
        const char* key;
        const char* shown;
        const char* hidden;
    } rows[] = {
        {"Root", "1_1", "txtValStr1 txtValStr3", "txtVal1 fraProperties chkDisabled cbxValEnum updVal1"},
        {"1_1", "2_1_1", "txtValStr2 txtVal3 updVal3 lblValDescription", "txtValStr3 txtVal2 lblMemory"},
        {"2_1_1", "3_1_1_G02", "lblVal1 lblVal2", "lblVal3 txtValStr1 fraProperties"},
        {"3_1_1_G02", "4_1_1_G02_P0204", "txtValStr1 lblRange2 lblBytes", "txtVal1 cbxValEnum lblVal2"},
        {"3_1_1_G02", "4_1_1_G02_P0201", "cbxValEnum", "txtVal1 txtValStr1"},
        {"3_1_2_G11", "4_1_2_G11_P1101", "txtVal1 updVal1 lblRange1", "txtVal2 updVal2"},
        {"3_1_1_G03", "4_1_1_G03_P0301", "txtVal1 txtVal2 txtVal3 lblRange3", "txtValStr1"},
        {"3_1_1_G03", "4_1_1_G03_P0302", "txtVal1 txtVal2 txtVal3 lblVal3", "txtValStr1"},
        {"3_1_1_G03", "4_1_1_G03_P0303", "txtVal1 txtVal2 txtVal3 lblRange3", "txtValStr1"},
    };
    setLanguage(GetParam());
    start();
    for (const auto& row : rows) {
        played = 0;
        insideProperty([&](QDialog& dialog) {
            for (const QString& name : QString(row.shown).split(' '))
                EXPECT_TRUE(dialog.findChild<QWidget*>(name)->isVisible()) << row.key << qPrintable(name);
            for (const QString& name : QString(row.hidden).split(' '))
                EXPECT_FALSE(dialog.findChild<QWidget*>(name)->isVisible()) << row.key << qPrintable(name);
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\Proprietà");
            EXPECT_EQ(pushButton(dialog, "cmdCancel")->text(), texts(14));
            for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                if (label->isVisible() && !label->wordWrap()) {
                    EXPECT_GE(label->width(), label->sizeHint().width()) << qPrintable(label->objectName());
                }
            }
        });
        openByKey(row.node, row.key);
        EXPECT_EQ(played, 1) << row.key;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, PropertyInLanguage,
                         testing::Values("EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"));

TEST_F(Property, TheRootShowsItsTotals)
{
    start();
    insideProperty([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("lblIDPar")->text(), "Root");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblVal1")->text(), "Total Groups: 2");
        press(dialog, "cmdOK");
        EXPECT_FALSE(dialog.isVisible());
    });
    clickItem("Root");
    QTest::keyClick(shownList(), Qt::Key_Return);
    EXPECT_EQ(played, 1);
}

TEST_F(Property, WithoutTheRightEverythingIsLocked)
{
    setRight("Modify", "0");
    start();
    insideProperty([&](QDialog& dialog) {
        EXPECT_FALSE(field(dialog, "txtVal1")->isEnabled());
        EXPECT_FALSE(dialog.findChild<QWidget*>("updVal1")->isEnabled());
        EXPECT_FALSE(pushButton(dialog, "cmdCopy")->isEnabled());
        EXPECT_FALSE(dialog.findChild<QCheckBox*>("chkDisabled")->isChecked());
    });
    openByKey("3_1_2_G11", "4_1_2_G11_P1101");
    EXPECT_EQ(played, 1);
}

// The copy
// --------------------------------------------------------------------------------------------------------

class PropertyCopyWindow : public Property
{
protected:
    PropertyCopyWindow()
    {
        runOnPlant("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P1101';"
                   "UPDATE tbParam SET mIDCopy = 'CP.02.01' WHERE mID = 'P1102';"
                   "UPDATE tbParam SET mIDCopy = 'CP.03.01' WHERE mID = 'P1103';"
                   "INSERT INTO tbParamCopyLanguage VALUES ('CP.02.01', 'EN', 'Second'), ('CP.03.01', 'EN', "
                   "'Third');");
    }

    void openCopy(const std::function<void(QDialog&)>& work)
    {
        insideProperty([&, work](QDialog& dialog) {
            inside("frmPropertyCopy", work);
            press(dialog, "cmdCopy");
        });
        openByKey("3_1_2_G11", "4_1_2_G11_P1101");
        EXPECT_EQ(played, 2);
    }
    static QAction* action(QDialog& dialog, const QString& name) { return dialog.findChild<QAction*>(name); }
};

TEST_F(PropertyCopyWindow, ABlockIsCheckedByKeyAndCopied)
{
    start();
    openCopy([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Copia Proprietà");
        auto* lvwItems = dialog.findChild<QTreeView*>("lvwItems");
        EXPECT_TRUE(lvwItems->hasFocus());
        EXPECT_EQ(lvwItems->model()->rowCount(), 2);
        EXPECT_EQ(lvwItems->model()->headerData(1, Qt::Horizontal).toString(), "Description");
        QTest::keyClick(lvwItems, Qt::Key_Down);
        QTest::keyClick(lvwItems, Qt::Key_Space);
        EXPECT_EQ(lvwItems->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        action(dialog, "mnuCopy")->trigger();
        EXPECT_EQ(shownValue("4_1_2_G11_P1103"), "5") << "4.5 under the mask of its target";
        EXPECT_FALSE(dialog.findChild<QWidget*>("prgLoad")->isVisible());
        action(dialog, "Exit")->trigger();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(plant().list().item("4_1_2_G11_P1103")->icon, 6);
    EXPECT_EQ(plant().selectedItem(), "4_1_2_G11_P1101");
}

TEST_F(PropertyCopyWindow, ButtonsCheckAllAskAndCopy)
{
    start();
    openCopy([&](QDialog& dialog) {
        desktop.script.expect(texts(532));
        action(dialog, "Copy")->trigger();
        action(dialog, "Check")->trigger();
        desktop.script.expect(texts(533) + "\r\n" + texts(534), platform::answers::kYes);
        action(dialog, "Copy")->trigger();
        EXPECT_EQ(shownValue("4_1_2_G11_P1102"), "5 K");
        action(dialog, "Uncheck")->trigger();
        desktop.script.expect(texts(532));
        action(dialog, "mnuCopy")->trigger();
    });
}

TEST_F(PropertyCopyWindow, AFailureStandsUnderItsProceduresName)
{
    start();
    openCopy([&](QDialog& dialog) {
        auto* toolbar = dialog.findChild<QToolBar*>("tlbMain");
        QObject::connect(action(dialog, "mnuCheck"), &QAction::triggered, &dialog,
                         [] { support::breakDown(); });
        action(dialog, "Check")->trigger();
        failures.expectUnder("frmPropertyCopy.tlbMain_ButtonClick");
        QObject::connect(toolbar, &QToolBar::iconSizeChanged, &dialog, [] { support::breakDown(); });
        action(dialog, "mnuTlbSmallIcons")->trigger();
        failures.expectUnder("frmPropertyCopy/ResetIcon");
    });
}

TEST_F(PropertyCopyWindow, IconsFollowTheSettingOfAllToolbars)
{
    start();
    openCopy([&](QDialog& dialog) {
        action(dialog, "mnuTlbSmallIcons")->trigger();
        EXPECT_EQ(dialog.findChild<QToolBar*>("tlbMain")->iconSize(), QSize(16, 16));
        EXPECT_EQ(session.ToolbarSet.Icons, 0);
        action(dialog, "mnuTlbLargeIcons")->trigger();
        EXPECT_EQ(dialog.findChild<QToolBar*>("tlbMain")->iconSize(), QSize(32, 32));
    });
}

} // namespace
