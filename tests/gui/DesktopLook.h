#pragma once

#include "widgets/Look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace gui {

// The look that a desktop of that kind gives, while it lives.
class DesktopLook
{
public:
    // `font` is how many times the desktop's own.
    DesktopLook(double font, bool dark) : font_(QApplication::font())
    {
        QFont larger = font_;
        larger.setPointSizeF(font_.pointSizeF() * font);
        QApplication::setFont(larger);
        look(dark ? darkDesktop() : QPalette(Qt::lightGray));
    }
    ~DesktopLook()
    {
        QApplication::setFont(font_);
        look(QPalette(Qt::lightGray));
    }
    DesktopLook(const DesktopLook&) = delete;
    DesktopLook& operator=(const DesktopLook&) = delete;

private:
    static QPalette darkDesktop()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor("#202020"));
        palette.setColor(QPalette::WindowText, QColor("#F0F0F0"));
        return palette;
    }
    static void look(const QPalette& desktop)
    {
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        QApplication::setPalette(desktop);
        widgets::applyLook(application);
    }

    QFont font_;
};

} // namespace gui
