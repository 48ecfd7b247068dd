#include "gui/WindowPlan.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QTimeEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>
#include <map>

namespace gui {

namespace {

// What changes with the fonts, with time and by use, or is told in another way.
const QStringList kUntold =
    QString(
        "Charset GivenName acceptDrops acceptableInput backwardAvailable baseSize blockCount childrenRect "
        "childrenRegion cleanText count currentIndex currentRow currentSection currentText cursorPosition "
        "date dateTime displayText document documentTitle down focus font forwardAvailable frameGeometry "
        "frameSize frameWidth fullScreen geometry hasSelectedText height html iconText inputMethodHints "
        "isActiveWindow isTopLevel layoutDirection locale markdown maximized maximumDate maximumDateTime "
        "maximumHeight maximumSize maximumTime maximumWidth minimized minimumDate minimumDateTime "
        "minimumHeight minimumSize minimumSizeHint minimumTime minimumWidth modified movement normalGeometry "
        "objectName opaqueResize orientation palette plainText pos rect redoAvailable searchPaths sections "
        "selectedText showToParent size sizeHint sizeIncrement sliderPosition source sourceType styleSheet "
        "time timeSpec underMouse undoAvailable updatesEnabled visible widgetLocked width windowFilePath "
        "windowIconText windowModality windowModified windowTitle x y")
        .split(' ');

// Plain parts of each kind, to see in what one differs.
class PlainParts
{
public:
    const QWidget& like(const QWidget& part)
    {
        const QMetaObject* kind = part.metaObject();
        while (!parts_.count(kind->className()))
            kind = kind->superClass();
        return *parts_.at(kind->className());
    }

private:
    template <class... Kind>
    std::map<QByteArray, QWidget*> made()
    {
        return {{Kind::staticMetaObject.className(), new Kind(&ground_)}...};
    }

    QWidget ground_;
    std::map<QByteArray, QWidget*> parts_ =
        made<QWidget, QDialog, QLabel, QLineEdit, QPushButton, QToolButton, QCheckBox, QRadioButton,
             QComboBox, QTreeView, QListView, QTableView, QGroupBox, QFrame, QDateEdit, QTimeEdit,
             QTextBrowser, QTextEdit, QTabWidget, QToolBar, QMenu, QSplitter, QPlainTextEdit, QStatusBar,
             QMenuBar, QListWidget, QProgressBar, QSpinBox, QTabBar, QScrollArea, QStackedWidget>();
};

QString quoted(QString text)
{
    return '"' + text.replace('\n', "\\n") + '"';
}

// "" for what no plan tells.
QString wordsOf(const QVariant& value, const QMetaProperty& property)
{
    if (property.isFlagType())
        return QString::fromLatin1(property.enumerator().valueToKeys(value.toInt()));
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    switch (value.typeId()) {
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QKeySequence:
        return quoted(value.toString());
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Double:
        return value.toString();
    case QMetaType::QSize:
        return QStringLiteral("%1x%2").arg(value.toSize().width()).arg(value.toSize().height());
    case QMetaType::QSizePolicy: {
        const auto policy = value.value<QSizePolicy>();
        return QStringLiteral("%1/%2/%3/%4%5")
            .arg(policy.horizontalPolicy())
            .arg(policy.verticalPolicy())
            .arg(policy.horizontalStretch())
            .arg(policy.verticalStretch())
            .arg(policy.retainSizeWhenHidden() ? " kept" : "");
    }
    case QMetaType::QIcon:
        return value.value<QIcon>().isNull() ? "none" : "drawn";
    case QMetaType::QPixmap:
        return value.value<QPixmap>().isNull() ? "none" : "drawn";
    case QMetaType::QCursor:
        return QString::number(value.value<QCursor>().shape());
    default:
        return {};
    }
}

class Plan
{
public:
    explicit Plan(const QWidget& window)
    {
        tell(0,
             "title " + quoted(window.windowTitle()) + " flags " +
                 QString::number(window.windowFlags().toInt(), 16) +
                 (window.windowIcon().cacheKey() == QApplication::windowIcon().cacheKey() ? ""
                                                                                          : " its own icon"));
        describe(window, 0);
        tell(0, "keys: " + wayOfTheKeys(window).join(", "));
    }
    QString text() const { return lines_.join('\n') + '\n'; }

private:
    void tell(int depth, const QString& line) { lines_ << QString(2 * depth, ' ') + line; }

    void describe(const QWidget& part, int depth)
    {
        QStringList words{QString::fromLatin1(part.metaObject()->className()).section("::", -1)};
        if (!part.objectName().isEmpty())
            words << part.objectName();
        if (part.isHidden() && depth > 0 && !makesRoom(part))
            words << "hidden";
        words << differences(part) << fontOf(part);
        if (const auto* label = qobject_cast<const QLabel*>(&part); label && label->buddy())
            words << "for " + label->buddy()->objectName();
        if (part.focusProxy())
            words << "hands the focus to " + part.focusProxy()->objectName();
        tell(depth, words.join(' '));
        if (const auto* box = qobject_cast<const QComboBox*>(&part)) {
            for (int entry = 0; entry < box->count(); ++entry)
                tell(depth + 1, "choice " + quoted(box->itemText(entry)));
            if (box->view()->metaObject()->className() != QByteArray("QComboBoxListView"))
                describe(*box->view(), depth + 1);
            return;
        }
        for (const auto* shortcut : part.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly))
            tell(depth + 1, "key " + shortcut->key().toString());
        if (!qobject_cast<const QToolButton*>(&part))
            for (const QAction* action : part.actions())
                describe(*action, depth + 1);
        if (const auto* tree = qobject_cast<const QTreeView*>(&part))
            describe(*tree->header(), depth + 1);
        if (const auto* tabs = qobject_cast<const QTabWidget*>(&part)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                tell(depth + 1, "tab " + quoted(tabs->tabText(tab)));
        }
        if (part.layout() && !qobject_cast<const QToolBar*>(&part))
            describe(*part.layout(), depth + 1);
        describeChildren(part, depth + 1);
    }
    // What the toolkit puts between a part and its content isn't told.
    void describeChildren(const QWidget& part, int depth)
    {
        for (const auto* child : part.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (isOfTheToolkit(*child))
                describeChildren(*child, depth);
            else if (!child->isWindow() || qobject_cast<const QMenu*>(child))
                describe(*child, depth);
        }
    }
    static bool isOfTheToolkit(const QWidget& part)
    {
        const bool unnamedMenu = qobject_cast<const QMenu*>(&part) && part.objectName().isEmpty();
        return part.objectName().startsWith("qt_") || unnamedMenu ||
               qobject_cast<const QHeaderView*>(&part) || qobject_cast<const QScrollBar*>(&part) ||
               part.metaObject()->className() == QByteArray("QToolBarExtension");
    }
    // The signs of the keys stand back where there is little room; a menu stands up when it is called.
    static bool makesRoom(const QWidget& part)
    {
        return qobject_cast<const QMenu*>(&part) || part.objectName() == "Caps" || part.objectName() == "Num";
    }
    static bool isTime(const QWidget& part, const QByteArray& property)
    {
        static const QRegularExpression time("^[0-9:/]+$");
        const auto* label = qobject_cast<const QLabel*>(&part);
        return property == "text" &&
               (qobject_cast<const QDateTimeEdit*>(&part) || (label && time.match(label->text()).hasMatch()));
    }
    QStringList differences(const QWidget& part)
    {
        QStringList words;
        const QWidget& plain = plain_.like(part);
        const QMetaObject& kind = *part.metaObject();
        for (int i = 0; i < kind.propertyCount(); ++i) {
            const QMetaProperty property = kind.property(i);
            if (!property.isReadable() || kUntold.contains(QLatin1String(property.name())) ||
                isTime(part, property.name()))
                continue;
            const QString is = wordsOf(property.read(&part), property);
            const QVariant usual = plain.property(property.name());
            if (!is.isEmpty() && !(usual.isValid() && is == wordsOf(usual, property)))
                words << property.name() + ('=' + is);
        }
        words.removeDuplicates();
        if (qobject_cast<const QAbstractItemView*>(&part) && part.minimumWidth() > 0)
            words << QStringLiteral("at least %1 wide").arg(part.minimumWidth());
        if (!part.isWindow() && part.minimumWidth() == part.maximumWidth())
            words << QStringLiteral("wide %1").arg(part.minimumWidth());
        for (const QByteArray& name : part.dynamicPropertyNames())
            if (!name.startsWith("_q") && !kUntold.contains(QLatin1String(name)))
                words << name + '=' + quoted(part.property(name).toString());
        return words;
    }
    static QStringList fontOf(const QWidget& part)
    {
        const QFont font = part.font(), usual = QApplication::font();
        QStringList words;
        if (font.bold())
            words << "bold";
        if (font.pointSizeF() != usual.pointSizeF())
            words << QStringLiteral("letters x%1").arg(font.pointSizeF() / usual.pointSizeF(), 0, 'f', 2);
        return words;
    }
    void describe(const QAction& action, int depth)
    {
        if (action.isSeparator())
            return tell(depth, "----");
        QStringList words{"entry", action.objectName(), quoted(action.text())};
        if (!action.toolTip().isEmpty() && action.toolTip() != action.text().remove('&'))
            words << "tip " + quoted(action.toolTip());
        if (!action.shortcuts().isEmpty())
            words << "key " + QKeySequence::listToString(action.shortcuts());
        words << (action.icon().isNull() ? "" : "icon") << (action.isEnabled() ? "" : "off")
              << (action.isVisible() ? "" : "hidden") << (action.isCheckable() ? "checkable" : "")
              << (action.isChecked() ? "checked" : "") << (action.menu() ? "menu" : "");
        words.removeAll(QString());
        tell(depth, words.join(' '));
    }
    void describe(const QHeaderView& header, int depth)
    {
        if (!header.model() || header.isHidden())
            return tell(depth, "no heading");
        QStringList words{"heading"};
        words << (header.stretchLastSection() ? "stretched" : "")
              << (header.sectionsMovable() ? "movable" : "")
              << (header.sectionsClickable() ? "clickable" : "")
              << (header.isSortIndicatorShown() ? "sorted" : "");
        words.removeAll(QString());
        tell(depth, words.join(' '));
        for (int column = 0; column < header.count(); ++column)
            tell(depth + 1, QStringLiteral("%1 mode %2%3")
                                .arg(quoted(header.model()->headerData(column, Qt::Horizontal).toString()))
                                .arg(header.sectionResizeMode(column))
                                .arg(header.isSectionHidden(column) ? " hidden" : ""));
    }
    void describe(QLayout& layout, int depth)
    {
        const QMargins margins = layout.contentsMargins();
        QString line = QStringLiteral("%1 margins %2,%3,%4,%5")
                           .arg(layout.metaObject()->className())
                           .arg(margins.left())
                           .arg(margins.top())
                           .arg(margins.right())
                           .arg(margins.bottom());
        const auto* grid = qobject_cast<const QGridLayout*>(&layout);
        const auto* box = qobject_cast<const QBoxLayout*>(&layout);
        line +=
            grid
                ? QStringLiteral(" spacing %1,%2").arg(grid->horizontalSpacing()).arg(grid->verticalSpacing())
                : QStringLiteral(" spacing %1").arg(layout.spacing());
        if (layout.sizeConstraint() != QLayout::SetDefaultConstraint)
            line += QStringLiteral(" size %1").arg(layout.sizeConstraint());
        tell(depth, line);
        for (int i = 0; i < layout.count(); ++i) {
            QLayoutItem& item = *layout.itemAt(i);
            QString place = QString::number(i);
            if (grid) {
                int row = 0, column = 0, rows = 0, columns = 0;
                grid->getItemPosition(i, &row, &column, &rows, &columns);
                place = QStringLiteral("%1,%2 %3x%4").arg(row).arg(column).arg(rows).arg(columns);
            } else if (box && box->stretch(i) != 0) {
                place += QStringLiteral(" stretch %1").arg(box->stretch(i));
            }
            if (item.alignment())
                place += QStringLiteral(" aligned %1").arg(int(item.alignment()), 0, 16);
            if (const QWidget* part = item.widget())
                tell(depth + 1, place + ": " + nameOf(*part));
            else if (const QSpacerItem* space = item.spacerItem())
                tell(depth + 1, place + QStringLiteral(": space %1 %2/%3")
                                            .arg(space->sizeHint().width())
                                            .arg(space->sizePolicy().horizontalPolicy())
                                            .arg(space->sizePolicy().verticalPolicy()));
            else if (QLayout* inner = item.layout()) {
                tell(depth + 1, place + ":");
                describe(*inner, depth + 2);
            }
        }
        if (grid) {
            QStringList stretches;
            for (int column = 0; column < grid->columnCount(); ++column)
                stretches << QStringLiteral("%1/%2")
                                 .arg(grid->columnStretch(column))
                                 .arg(grid->columnMinimumWidth(column));
            for (int row = 0; row < grid->rowCount(); ++row)
                if (grid->rowStretch(row) != 0)
                    stretches << QStringLiteral("row %1: %2").arg(row).arg(grid->rowStretch(row));
            tell(depth + 1, "columns " + stretches.join(' '));
        }
    }
    static QString nameOf(const QWidget& part)
    {
        return part.objectName().isEmpty()
                   ? QString::fromLatin1(part.metaObject()->className()).section("::", -1)
                   : part.objectName();
    }
    static QStringList wayOfTheKeys(const QWidget& window)
    {
        QStringList names;
        for (const QWidget* part = window.nextInFocusChain(); part && part != &window;
             part = part->nextInFocusChain())
            if (part->isVisible() && (part->focusPolicy() & Qt::TabFocus) && !part->focusProxy() &&
                part->window() == &window)
                names << nameOf(*part);
        return names;
    }

    PlainParts plain_;
    QStringList lines_;
};

} // namespace

QString planOf(const QWidget& window, const QString& home)
{
    return Plan(window).text().replace(home, "HOME");
}

void expectPlan(const QWidget& window, const QString& name, const QString& home)
{
    QFile file(QStringLiteral(CALIDORA_PLANS) + '/' + name + ".txt");
    if (qEnvironmentVariable("CALIDORA_PLANS") == "write") {
        QTest::qWait(1500); // what a window still searches
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
        file.write(planOf(window, home).toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    const QString plan = QString::fromUtf8(file.readAll());
    QString is;
    // What a window searches comes a little later.
    if (QTest::qWaitFor([&] { return (is = planOf(window, home)) == plan; }, 3000))
        return;
    const QStringList told = plan.split('\n'), lines = is.split('\n');
    qsizetype line = 0;
    while (told.value(line) == lines.value(line))
        ++line;
    ADD_FAILURE() << qPrintable(name) << ", line " << line + 1 << "\nplanned " << qPrintable(told.value(line))
                  << "\nfound   " << qPrintable(lines.value(line));
}

} // namespace gui
