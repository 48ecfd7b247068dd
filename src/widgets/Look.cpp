#include "widgets/Look.h"

#include "platform/widgets/Icons.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace widgets {

namespace {

// The splash's night blue on a cool, quiet ground; the accent is the one of the icons.
QPalette coolPalette()
{
    const QColor ink("#1B2A38"), faint("#7C8A97"), ground("#F1F4F7"), accent("#1B74B5");
    QPalette palette;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor("#F6F9FB"));
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Button, QColor("#E9EEF3"));
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::ToolTipBase, QColor("#12263C"));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::Mid, QColor("#C3CDD6"));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor("#9AA6B1"));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor("#C9DCEB"));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, ink);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor("#D5DCE2"));
    return palette;
}

} // namespace

void applyLook(QApplication& application)
{
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(coolPalette());
    application.setWindowIcon(platform::icon("calidora"));
    application.setStyleSheet(
        "QToolTip { color: white; background: #12263C; border: 1px solid #12263C; padding: 3px; }"
        "QToolBar { border: 0; border-bottom: 1px solid #D3DBE2; padding: 3px; spacing: 1px; }"
        "QToolBar::separator { width: 1px; margin: 5px 5px; background: #CBD4DC; }"
        "QHeaderView::section { background: #F1F4F7; border: 0; padding: 4px 8px;"
        " border-bottom: 1px solid #D3DBE2; border-right: 1px solid #DFE5EA; }"
        "QStatusBar { border-top: 1px solid #D3DBE2; }"
        "QStatusBar::item { border: 0; }");
}

} // namespace widgets
