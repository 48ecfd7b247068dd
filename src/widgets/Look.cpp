#include "widgets/Look.h"

#include "platform/widgets/Icons.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace widgets {

namespace {

// The splash's night blue on a cool, quiet ground; the accent is the one of the icons.
struct Colours
{
    const char *ground, *base, *alternate, *button, *mid, *line;
    const char *ink, *faint, *disabled, *accent, *link, *tip;
    const char *selectedElsewhere, *selectedDisabled;
};
constexpr Colours kLight{"#F1F4F7", "#FFFFFF", "#F6F9FB", "#E9EEF3", "#C3CDD6", "#D3DBE2", "#1B2A38",
                         "#7C8A97", "#9AA6B1", "#1B74B5", "#1B74B5", "#12263C", "#C9DCEB", "#D5DCE2"};
constexpr Colours kDark{"#1D2630", "#151C24", "#1A222B", "#2A3642", "#3D4B59", "#36434F", "#E3EAF0",
                        "#93A2B0", "#66737F", "#2B84C6", "#7CC4F0", "#0D141B", "#2C475C", "#333F4A"};

QPalette paletteOf(const Colours& colours)
{
    QPalette palette;
    palette.setColor(QPalette::Window, colours.ground);
    palette.setColor(QPalette::WindowText, colours.ink);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.alternate);
    palette.setColor(QPalette::Text, colours.ink);
    palette.setColor(QPalette::PlaceholderText, colours.faint);
    palette.setColor(QPalette::Button, colours.button);
    palette.setColor(QPalette::ButtonText, colours.ink);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, colours.tip);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colours.link);
    palette.setColor(QPalette::LinkVisited, colours.link);
    palette.setColor(QPalette::Mid, colours.mid);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colours.disabled);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colours.selectedElsewhere);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colours.ink);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.selectedDisabled);
    return palette;
}

QString sheetOf(const Colours& colours)
{
    return QStringLiteral("QToolTip { color: white; background: %1; border: 1px solid %1; padding: 3px; }"
                          "QToolBar { border: 0; border-bottom: 1px solid %2; padding: 3px; spacing: 1px; }"
                          "QToolBar::separator { width: 1px; margin: 5px 5px; background: %3; }"
                          "QHeaderView::section { background: %4; border: 0; padding: 4px 8px 4px 3px;"
                          " border-bottom: 1px solid %2; border-right: 1px solid %2; }"
                          "QStatusBar { border-top: 1px solid %2; }"
                          "QStatusBar::item { border: 0; }")
        .arg(colours.tip, colours.line, colours.mid, colours.ground);
}

// What the desktop has set before anything was changed.
bool isDark(const QPalette& desktop)
{
    return desktop.color(QPalette::Window).lightness() < desktop.color(QPalette::WindowText).lightness();
}

// Texts, lists and a window's default button show whether they have the keys, which the toolkit leaves open.
class Style : public QProxyStyle
{
public:
    Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (!option->state.testFlag(State_HasFocus))
            return;
        const bool byKeys = option->state.testFlag(State_KeyboardFocusChange);
        if (element == CE_ShapedFrame)
            outline(*painter, option->rect, option->palette);
        else if (element == CE_PushButton && byKeys)
            outline(*painter, option->rect.adjusted(3, 3, -3, -3), option->palette);
    }

private:
    static void outline(QPainter& painter, const QRect& rect, const QPalette& palette)
    {
        painter.setPen(palette.color(QPalette::Active, QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
    }
};

} // namespace

void applyLook(QApplication& application)
{
    const bool dark = isDark(QApplication::palette());
    const Colours& colours = dark ? kDark : kLight;
    platform::setDarkGround(dark);
    application.setStyle(new Style);
    application.setPalette(paletteOf(colours));
    application.setWindowIcon(platform::icon("calidora"));
    application.setStyleSheet(sheetOf(colours));
}

} // namespace widgets
