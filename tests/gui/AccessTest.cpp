// Windows for everybody: what a screen reader is told, what a larger font or scale leaves room for, what the
// keys reach, a dark desktop. QT_SCALE_FACTOR runs it at another scale.
#include "gui/DesktopLook.h"
#include "gui/GuiFixture.h"
#include "platform/widgets/Icons.h"
#include "widgets/FormLanguage.h"

#include <QAccessible>

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
        nothingIsClipped(form);
        everyControlIsNamed(form);
        theKeysReachEveryControl(form);
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

private:
    std::optional<gui::DesktopLook> desk_;
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

} // namespace
