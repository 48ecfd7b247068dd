// Windows for everybody: what a screen reader is told, what a larger font or scale leaves room for, what the
// keys reach, a dark desktop. QT_SCALE_FACTOR runs it at another scale.
#include "gui/DesktopLook.h"
#include "gui/GuiFixture.h"
#include "gui/WindowPlan.h"

#include "../events/LogText.h"
#include "platform/widgets/Icons.h"
#include "widgets/FormLanguage.h"

#include <QAccessible>
#include <QPushButton>

namespace {

struct Setting
{
    const char* language;
    double font; // times the desktop's own
    bool dark;
};

std::ostream& operator<<(std::ostream& out, const Setting& setting)
{
    return out << setting.language << ", font " << setting.font << (setting.dark ? ", dark" : "");
}

class Access : public gui::GuiFixture, public testing::WithParamInterface<Setting>
{
protected:
    void SetUp() override
    {
        desk_.emplace(GetParam().font, GetParam().dark);
        setLanguage(GetParam().language);
        start();
        clickNode("1_1");
    }
    void TearDown() override { desk_.reset(); }

    void look(QWidget& form, const QString& name)
    {
        QApplication::processEvents();
        picture(form, QStringLiteral("access-%1-%2%3")
                          .arg(name)
                          .arg(GetParam().font)
                          .arg(GetParam().dark ? "-dark" : ""));
        itIsAsPlanned(form, name);
        nothingIsClipped(form);
        everyControlIsNamed(form);
        theKeysReachEveryControl(form);
        theFocusIsSeen(form);
    }
    void dialog(const QString& name, const std::function<void()>& open)
    {
        const int before = played;
        inside(name, [&](QDialog& form) { look(form, name); });
        open();
        EXPECT_EQ(played, before + 1) << qPrintable(name);
    }
    void dialog(const QString& name)
    {
        dialog(name, [&] { desktop.platform::DesktopOperator::showFormModal(name); });
    }
    void beside(const QString& name)
    {
        desktop.showForm(name);
        look(*desktop.form(name), name);
        desktop.unloadForm(name);
    }

    // The plans are drawn in English, of windows as they come up on a plain desktop.
    void itIsAsPlanned(const QWidget& form, const QString& name)
    {
        const Setting& setting = GetParam();
        if (session.Language.Code != "EN" || setting.font != 1.0 || setting.dark ||
            form.devicePixelRatioF() != 1.0)
            return;
        const int before = plans_[name]++;
        gui::expectPlan(form, before == 0 ? name : name + QStringLiteral("-%1").arg(before + 1),
                        session.AppPath);
    }

    static bool isControl(QAccessible::Role role)
    {
        switch (role) {
        case QAccessible::PushButton:
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
        case QAccessible::EditableText:
        case QAccessible::ComboBox:
        case QAccessible::SpinBox:
        case QAccessible::List:
        case QAccessible::Tree:
        case QAccessible::Table:
        case QAccessible::PageTab:
        case QAccessible::MenuItem:
        case QAccessible::ButtonMenu:
        case QAccessible::ButtonDropDown:
        case QAccessible::Slider:
            return true;
        default:
            return false;
        }
    }
    // Walks what a screen reader sees of the window.
    void everyControlIsNamed(QWidget& form)
    {
        int seen = 0;
        const std::function<void(QAccessibleInterface*, int)> walk = [&](QAccessibleInterface* node,
                                                                         int depth) {
            if (!node || !node->isValid() || depth > 30)
                return;
            const auto* widget = qobject_cast<QWidget*>(node->object());
            if (widget && (widget->isHidden() || (widget->isWindow() && widget != &form)))
                return;
            const QAccessible::Role role = node->role();
            EXPECT_NE(role, QAccessible::NoRole);
            if (isControl(role)) {
                ++seen;
                EXPECT_FALSE(node->text(QAccessible::Name).trimmed().isEmpty())
                    << qPrintable(form.objectName()) << ": "
                    << qPrintable(node->object() ? node->object()->objectName() : QString()) << " ("
                    << (node->object() ? node->object()->metaObject()->className() : "?") << ")";
            }
            // The rows of a list are named by what stands in them.
            if (role == QAccessible::List || role == QAccessible::Tree || role == QAccessible::Table ||
                role == QAccessible::ComboBox || role == QAccessible::SpinBox)
                return;
            for (int child = 0; child < node->childCount(); ++child)
                walk(node->child(child), depth + 1);
        };
        walk(QAccessible::queryAccessibleInterface(&form), 0);
        EXPECT_GT(seen, 0) << qPrintable(form.objectName());
    }
    // Whoever takes the keys by a click takes them by Tab, too.
    static void theKeysReachEveryControl(QWidget& form)
    {
        for (const QWidget* control : form.findChildren<QWidget*>()) {
            // A text that can be marked by the mouse is no control.
            if (qobject_cast<const QLabel*>(control))
                continue;
            if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::ClickFocus)) {
                EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus)
                    << qPrintable(form.objectName()) << ": " << qPrintable(control->objectName());
            }
        }
    }

    // Whoever goes by the keys sees where they are.
    static void theFocusIsSeen(QWidget& form)
    {
        QApplication::setCursorFlashTime(0);
        form.setAttribute(Qt::WA_KeyboardFocusChange); // as behind the first Tab
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form))
            return;
        QWidget* const before = form.focusWidget();
        for (QWidget* control : form.findChildren<QWidget*>()) {
            if (!control->isVisible() || !control->isEnabled() || !(control->focusPolicy() & Qt::TabFocus) ||
                control->focusProxy() || control->window() != &form)
                continue;
            // A link shows it in its text when Tab comes by.
            if (qobject_cast<QLabel*>(control))
                continue;
            // Nor is there anything to go through in a list that is empty.
            if (const auto* view = qobject_cast<QAbstractItemView*>(control);
                view && view->frameShape() == QFrame::NoFrame && view->model()->rowCount() == 0)
                continue;
            const QRect place(control->mapTo(&form, QPoint()), control->size());
            const auto grab = [&] {
                QApplication::processEvents();
                return form.grab(place.adjusted(-3, -3, 3, 3)).toImage();
            };
            control->setFocus(Qt::TabFocusReason);
            if (QApplication::focusWidget() != control)
                continue; // it hands the keys on
            const QImage with = grab();
            control->clearFocus();
            EXPECT_NE(with, grab()) << qPrintable(form.objectName()) << ": "
                                    << qPrintable(control->objectName()) << " ("
                                    << control->metaObject()->className() << ")";
        }
        if (before)
            before->setFocus();
    }

private:
    std::optional<gui::DesktopLook> desk_;
    std::map<QString, int> plans_;
};

TEST_P(Access, TheMainWindow)
{
    look(*window(), "frmMain");
}

TEST_P(Access, WithoutACompany)
{
    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    look(*window(), "frmMain-empty");
}

TEST_P(Access, WhatStandsBesideTheMainWindow)
{
    beside("frmFind");
    beside("frmPending");
    beside("frmManual");
}

TEST_P(Access, HistoryCompareAndTrace)
{
    clickNode("3_1_1_G01");
    for (const char* value : {"5", "7.5", "6"}) {
        session.cnDatabase.Execute(QStringLiteral("UPDATE tbParametersUser SET Value = '%1', State = 1 WHERE "
                                                  "IDGrp = 1 AND IDInst = 1 AND IDPar = 'P0101';")
                                       .arg(value));
        clock.run(60'000);
    }
    port.feed("RING");
    clock.settle();
    plant().pressItem("4_1_1_G01_P0101");
    program.handlers().run("History");
    const auto rows = [](QWidget* form, const char* list) {
        return form->findChild<QAbstractItemView*>(list)->model()->rowCount();
    };
    QWidget* history = desktop.form("frmHistory");
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows(history, "lvwHistory") == 3; }));
    look(*history, "frmHistory");
    window()->activateWindow();
    program.handlers().run("CompareNode");
    QWidget* compare = desktop.form("frmCompare");
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows(compare, "lvwCompare") == 1; }));
    look(*compare, "frmCompare");
    window()->activateWindow();
    program.handlers().run("LineTrace");
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows(desktop.form("frmTrace"), "lvwTrace") > 0; }));
    look(*desktop.form("frmTrace"), "frmTrace");
    clock.run(20'000);
}

TEST_P(Access, TheCopyOfProperties)
{
    const QString insert = "INSERT INTO tbParamCopyLanguage VALUES ('CP.02.01', '%1', 'Second block');";
    runOnPlant("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P1101';"
               "UPDATE tbParam SET mIDCopy = 'CP.02.01' WHERE mID = 'P1102';" +
               insert.arg(session.Language.Code));
    clickNode("3_1_2_G11");
    plant().pressItem("4_1_2_G11_P1101");
    inside("frmProperty", [&](QDialog& form) {
        inside("frmPropertyCopy", [&](QDialog& copy) { look(copy, "frmPropertyCopy"); });
        form.findChild<QPushButton*>("cmdCopy")->click();
    });
    program.handlers().run("Property");
    EXPECT_EQ(played, 2);
}

TEST_P(Access, ThePrinters)
{
    printers.printers = {{"Workshop", "usb", "Inkwell 3"}, {"Office", "ipp", "LaserMark 20"}};
    dialog("frmPrinters", [&] {
        program.printing().print({"Plant", platform::Orientation::Portrait,
                                  [](platform::Printer& paper) { paper.printLine("x"); }});
    });
}

TEST_P(Access, AnEvent)
{
    QDir(session.AppPath).mkpath("Log");
    QFile log(session.appFile("Log/Calidora_20260315000000.log"));
    ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    log.write(logs::event("Connected."));
    log.close();
    inside("frmEventViewer", [&](QDialog& viewer) {
        auto* list = viewer.findChild<QAbstractItemView*>("lvwItems");
        ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 1; }));
        inside("frmEventText", [&](QDialog& text) { look(text, "frmEventText"); });
        QTest::keyClick(list, Qt::Key_Return);
    });
    program.handlers().run("EventViewer");
    EXPECT_EQ(played, 2);
}

TEST_P(Access, TheConsole)
{
    plant().pressItem("2_1_1");
    dialog("frmReadWrite", [&] { program.handlers().run("ReadWrite"); });
}

TEST_P(Access, TheProperties)
{
    clickNode("3_1_1_G01");
    for (const char* item : {"4_1_1_G01_P0101", "4_1_1_G01_P0102"}) {
        plant().pressItem(item);
        dialog("frmProperty", [&] { program.handlers().run("Property"); });
    }
    clickNode("1_1");
    plant().pressItem("2_1_1");
    dialog("frmProperty", [&] { program.handlers().run("Property"); });
}

TEST_P(Access, TheDialogs)
{
    dialog("frmSettings", [&] { program.handlers().run("Settings"); });
    dialog("frmInfo");
    dialog("frmSystemInfo");
    dialog("frmLanguage");
    dialog("frmLogInOut");
    dialog("frmMessage");
    dialog("frmUpgrade");
    dialog("frmZoomDate");
    dialog("frmEventViewer", [&] { program.handlers().run("EventViewer"); });
    dialog("frmEventFilter");
}

TEST_P(Access, WhatShowsHowFarAJobIs)
{
    for (const char* form : {"frmConnection", "frmReadLogFiles", "frmCopy", "frmPresentation"}) {
        desktop.showForm(form);
        itIsAsPlanned(*desktop.form(form), form);
        desktop.unloadForm(form);
    }
}

TEST_P(Access, TheOperators)
{
    enterAs(support::kAdministrator);
    dialog("frmUsers", [&] { program.handlers().run("Users"); });
}

TEST_P(Access, TheTypesOfInstruments)
{
    dialog("frmZoom", [&] { program.handlers().run("New"); });
}

INSTANTIATE_TEST_SUITE_P(Desktops, Access,
                         testing::Values(Setting{"EN_English_2000", 1.0, false},
                                         Setting{"IT_Italiano_1000", 1.0, false},
                                         Setting{"RU_Russian_6000", 1.0, false},
                                         Setting{"RU_Russian_6000", 1.5, false},
                                         Setting{"IT_Italiano_1000", 1.5, true}));

class DarkDesktop : public gui::GuiFixture
{
protected:
    // How far a picture lies from the ground, at most: 0 is invisible.
    static int contrast(const QPixmap& drawn, const QColor& ground)
    {
        const QImage image = drawn.toImage().convertToFormat(QImage::Format_ARGB32);
        int most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor point = image.pixelColor(x, y);
                if (point.alpha() > 200)
                    most = std::max(most, qAbs(qGray(point.rgb()) - qGray(ground.rgb())));
            }
        }
        return most;
    }
};

TEST_F(DarkDesktop, PaletteAndIconsFollowIt)
{
    {
        const gui::DesktopLook dark(1.0, true);
        const QPalette palette = QApplication::palette();
        EXPECT_LT(palette.color(QPalette::Window).lightness(), 80);
        EXPECT_GT(palette.color(QPalette::WindowText).lightness(), 180);
        for (const char* name :
             {"new", "parent", "refresh", "manual", "read", "write", "connect", "info", "tree"})
            EXPECT_GT(contrast(platform::icon(name).pixmap(24, 24), palette.color(QPalette::Window)), 90)
                << name;
        start();
        picture(*window(), "frmMain-dark");
    }
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 200);
    EXPECT_GT(contrast(platform::icon("parent").pixmap(24, 24), Qt::white), 90);
}

TEST_F(DarkDesktop, AnIconThatIsOffIsPaler)
{
    const gui::DesktopLook dark(1.0, true);
    const QIcon icon = platform::icon("delete");
    EXPECT_NE(icon.pixmap(24, 24).toImage(), icon.pixmap(24, 24, QIcon::Disabled).toImage());
    EXPECT_EQ(icon.pixmap(16, 16).size(), QSize(16, 16));
}

// Colour is never the only sign: without it the pictures of one place are still told from one another.
TEST(SignsWithoutColour, ArePicturesOfDifferentShapes)
{
    const std::vector<QStringList> kPlaces{
        {"param-ok", "param-changed", "param-added"},
        {"param-ok-16", "param-changed-16", "param-added-16"},
        {"badge-changed", "badge-unconfirmed", "badge-lock"},
        {"log-info", "log-warning", "log-error"},
        {"port-open", "port-closed", "port-busy"},
        {"info", "question", "warning", "error"},
    };
    // What is drawn, whatever its colour.
    const auto shapes = [](const QString& name) {
        QImage grey = platform::icon(name).pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < grey.height(); ++y) {
            for (int x = 0; x < grey.width(); ++x) {
                const QColor point = grey.pixelColor(x, y);
                const bool bright = point.alpha() < 128 || point.lightness() > 170;
                grey.setPixelColor(x, y, bright ? Qt::white : Qt::black);
            }
        }
        return grey;
    };
    for (const QStringList& place : kPlaces) {
        for (qsizetype one = 0; one < place.size(); ++one) {
            for (qsizetype other = 0; other < one; ++other) {
                const QImage a = shapes(place[one]), b = shapes(place[other]);
                int different = 0;
                for (int y = 0; y < a.height(); ++y) {
                    for (int x = 0; x < a.width(); ++x)
                        different += a.pixel(x, y) != b.pixel(x, y);
                }
                EXPECT_GE(different, 20) << qPrintable(place[one]) << " and " << qPrintable(place[other]);
            }
        }
    }
}

} // namespace
