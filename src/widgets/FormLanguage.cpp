#include "widgets/FormLanguage.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/ControlNames.h"
#include "widgets/ToolkitLanguage.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolBar>

namespace widgets {

using namespace session;

namespace {

QString tagOf(const QObject& object)
{
    return object.property(kTag).toString();
}

int numberOf(const QString& tag)
{
    bool numeric = false;
    const int number = tag.toInt(&numeric);
    if (!numeric)
        platform::fail(platform::errors::kTypeMismatch, QStringLiteral("Type mismatch: '%1'").arg(tag));
    return number;
}

// One walk over one form.
class Walk
{
public:
    Walk(const Session& session, const Texts& texts) : session_(session), texts_(texts) {}

    void form(QWidget& form)
    {
        if (form.objectName() != QLatin1String("frmMain"))
            form.setProperty(kCharset, session_.Charset);
        if (const QString tag = tagOf(form); !tag.isEmpty())
            form.setWindowTitle(session_.AppTitle + '\\' + text(tag));
        children(form);
    }

private:
    QString text(const QString& tag) const { return texts_(qAbs(numberOf(tag))); }

    void children(QObject& parent)
    {
        for (QObject* child : parent.children()) {
            if (child->objectName().startsWith(QLatin1String("frm")))
                continue;
            control(*child);
            children(*child);
        }
    }

    void control(QObject& object)
    {
        if (auto* action = qobject_cast<QAction*>(&object)) {
            applyAction(*action);
        } else if (auto* menu = qobject_cast<QMenu*>(&object)) {
            applyMenu(*menu);
        } else if (auto* widget = qobject_cast<QWidget*>(&object)) {
            applyWidget(*widget);
            widget->setProperty(kCharset, session_.Charset);
        }
    }

    // A menu's entry takes its caption, a toolbar's button its tool tip.
    void applyAction(QAction& action)
    {
        if (const QString own = action.property(kOwnText).toString(); !own.isEmpty())
            action.setText(texts_.own(own));
        const QString tag = tagOf(action);
        if (tag.isEmpty())
            return;
        if (qobject_cast<QToolBar*>(action.parent())) {
            action.setText(text(tag));
            action.setToolTip(text(tag));
        } else {
            action.setText(text(tag));
        }
    }

    void applyMenu(QMenu& menu)
    {
        if (const QString own = menu.property(kOwnText).toString(); !own.isEmpty())
            menu.setTitle(texts_.own(own));
        if (const QString tag = tagOf(menu); !tag.isEmpty())
            menu.setTitle(text(tag));
    }

    void applyWidget(QWidget& widget)
    {
        const QString tag = tagOf(widget);
        if (auto* tabs = qobject_cast<QTabWidget*>(&widget); tabs && !tag.isEmpty()) {
            for (int i = 0; i < tabs->count(); ++i)
                tabs->setTabText(i, texts_(qAbs(numberOf(tag)) + i));
            return;
        }
        if (auto* strip = qobject_cast<QTabBar*>(&widget)) {
            for (int i = 0; i < strip->count(); ++i) {
                if (const QString tab = strip->tabData(i).toString(); !tab.isEmpty())
                    strip->setTabText(i, text(tab));
            }
            return;
        }
        if (tag.isEmpty())
            return;
        if (isPanel(widget) || isInput(widget))
            widget.setToolTip(text(tag));
        else
            applyCaption(widget, tag);
    }

    static bool isPanel(const QWidget& widget) { return qobject_cast<QStatusBar*>(widget.parentWidget()); }

    static bool isInput(const QWidget& widget)
    {
        return qobject_cast<const QListWidget*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
               qobject_cast<const QTextEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget);
    }

    // Check boxes, labels, buttons and frames: an empty caption stays empty, a negative tag always gives the
    // tip.
    void applyCaption(QWidget& widget, const QString& tag)
    {
        bool captioned = true;
        if (auto* label = qobject_cast<QLabel*>(&widget))
            setCaption(*label, tag);
        else if (auto* button = qobject_cast<QAbstractButton*>(&widget))
            setCaption(*button, tag);
        else if (auto* frame = qobject_cast<QGroupBox*>(&widget))
            setTitle(*frame, tag);
        else
            captioned = false;
        if (captioned && numberOf(tag) < 0)
            widget.setToolTip(texts_(qAbs(numberOf(tag)) + 1));
    }

    template <class Control>
    void setCaption(Control& control, const QString& tag) const
    {
        if (!control.text().isEmpty())
            control.setText(text(tag));
    }

    void setTitle(QGroupBox& frame, const QString& tag) const
    {
        if (!frame.title().isEmpty())
            frame.setTitle(text(tag));
    }

    const Session& session_;
    const Texts& texts_;
};

} // namespace

bool Set_Language(QWidget& form, const Session& session, const Texts& texts, platform::Operator& op)
{
    return platform::guarded("Module/Set_Language", [&] {
        const platform::BusyPointer busy(op);
        Walk(session, texts).form(form);
        setToolkitLanguage(session.Language.Code);
        QEvent changed(QEvent::LanguageChange);
        QApplication::sendEvent(&form, &changed);
        nameControls(form);
        return true;
    });
}

void SetLanguage_AllForms(const QString& identifier, const QList<QWidget*>& forms, Session& session,
                          const Texts& texts, platform::Operator& op)
{
    platform::guarded("frmSettings/SetLanguage_AllForms", [&] {
        session.Language = LanguageSettings::fromIdentifier(identifier);
        for (QWidget* form : forms)
            Set_Language(*form, session, texts, op);
    });
}

} // namespace widgets
