#include "program/Habits.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>

namespace program {

namespace {

constexpr QSize kFrame(10, 44); // what a desktop puts around a window, at most

enum Kept
{
    kNothing = 0,
    kPlace = 1,
    kSize = 2,
    kParts = 4, // columns and dividers
    kSearch = 8
};

int keptOf(const QString& window)
{
    static const QHash<QString, int> kWindows{
        {"frmMain", kPlace | kSize},
        {"frmReadWrite", kPlace | kSize | kParts},
        {"frmFind", kPlace | kSize | kParts | kSearch},
        {"frmPending", kPlace | kSize | kParts},
        {"frmHistory", kPlace | kSize | kParts},
        {"frmCompare", kPlace | kSize | kParts},
        {"frmTrace", kPlace | kSize | kParts},
        {"frmManual", kPlace | kSize | kParts},
        {"frmEventViewer", kPlace | kSize},
        {"frmEventText", kPlace | kSize},
        {"frmZoom", kPlace | kSize},
        {"frmUsers", kPlace},
        {"frmSettings", kPlace},
        {"frmProperty", kPlace},
        {"frmPropertyCopy", kPlace},
        {"frmEventFilter", kPlace},
        {"frmPrinters", kPlace},
    };
    return kWindows.value(window, kNothing);
}

// The arrangement of screens, as a key: "1280x1024+0+0 1920x1080+1280+0".
QString screens()
{
    QStringList all;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect place = screen->geometry();
        all << QStringLiteral("%1x%2+%3+%4")
                   .arg(place.width())
                   .arg(place.height())
                   .arg(place.x())
                   .arg(place.y());
    }
    return all.join(u' ');
}

QString placeKey(const QWidget& window)
{
    return screens() + u'/' + window.objectName() + QStringLiteral("/place");
}

QString partKey(const QWidget& window, const QObject& part)
{
    return window.objectName() + u'/' + part.objectName();
}

// So that its title can be taken hold of and nothing lies outside.
void moveInside(QWidget& window, QPoint place)
{
    const QScreen* screen = QGuiApplication::screenAt(place);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    const QSize whole = window.size() + kFrame;
    place.setX(qBound(room.left(), place.x(), qMax(room.left(), room.right() - whole.width())));
    place.setY(qBound(room.top(), place.y(), qMax(room.top(), room.bottom() - whole.height())));
    window.move(place);
}

// The parts that have a state to keep, by name. A list is known by its own name, not by its heading's.
template <class Work>
void eachPart(const QWidget& window, const Work& work)
{
    for (auto* view : window.findChildren<QTreeView*>()) {
        if (!view->objectName().isEmpty() && !view->isHeaderHidden())
            work(*view, *view->header());
    }
    for (auto* splitter : window.findChildren<QSplitter*>()) {
        if (!splitter->objectName().isEmpty())
            work(*splitter, *splitter);
    }
}

} // namespace

Habits::Habits(const QString& applicationFolder)
    : settings_(applicationFolder + QStringLiteral("/Calidora_Windows.ini"), QSettings::IniFormat)
{
    qApp->installEventFilter(this);
}

bool Habits::eventFilter(QObject* watched, QEvent* event)
{
    const bool comes = event->type() == QEvent::Show;
    if ((!comes && event->type() != QEvent::Hide) || event->spontaneous() || !watched->isWidgetType())
        return false;
    auto& window = static_cast<QWidget&>(*watched);
    if (!window.isWindow() || keptOf(window.objectName()) == kNothing)
        return false;
    if (comes)
        restore(window);
    else
        keep(window);
    return false;
}

void Habits::restore(QWidget& window)
{
    const int kept = keptOf(window.objectName());
    const QVariant place = settings_.value(placeKey(window));
    if (place.isValid() && (kept & kSize))
        window.restoreGeometry(place.toByteArray());
    else if (place.isValid())
        moveInside(window, place.toPoint());
    if (kept & kParts) {
        eachPart(window, [&](const QWidget& named, auto& part) {
            part.restoreState(settings_.value(partKey(window, named)).toByteArray());
        });
    }
    if (kept & kSearch) {
        auto* field = window.findChild<QLineEdit*>();
        field->setText(settings_.value(partKey(window, *field)).toString());
        field->selectAll();
    }
}

void Habits::keep(const QWidget& window)
{
    const int kept = keptOf(window.objectName());
    settings_.setValue(placeKey(window),
                       kept & kSize ? QVariant(window.saveGeometry()) : QVariant(window.pos()));
    if (kept & kParts) {
        eachPart(window, [&](const QWidget& named, const auto& part) {
            settings_.setValue(partKey(window, named), part.saveState());
        });
    }
    if (kept & kSearch) {
        const auto* field = window.findChild<QLineEdit*>();
        settings_.setValue(partKey(window, *field), field->text());
    }
}

} // namespace program
