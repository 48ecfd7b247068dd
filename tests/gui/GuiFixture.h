#pragma once

#include "platform/MemorySerialPort.h"
#include "platform/RecordingPrinters.h"
#include "platform/VirtualClock.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/Program.h"
#include "program/frmMain.h"
#include "session/Configuration.h"
#include "structure/widgets/ListBusView.h"
#include "structure/widgets/NodeView.h"
#include "support/CompanyFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>

namespace gui {

// Real windows, with boxes and file dialogs answered from a script.
class ScriptedDesktop : public platform::DesktopOperator
{
public:
    explicit ScriptedDesktop(const session::Texts& texts)
        : DesktopOperator([&texts](const QString& key) { return texts.own(key); })
    {
    }

    int messageBox(const QString& text, platform::Buttons buttons, platform::Icon icon,
                   const QString& title) override
    {
        const int answer = script.messageBox(text, buttons, icon, title);
        if (whileABoxStands)
            whileABoxStands();
        return answer;
    }
    int ask(const platform::Question& question) override
    {
        const int answer = script.ask(question);
        if (whileABoxStands)
            whileABoxStands();
        return answer;
    }
    QString openFile(const platform::FileRequest& request) override { return script.openFile(request); }
    platform::ChosenFile saveFile(const platform::FileRequest& request) override
    {
        return script.saveFile(request);
    }
    void openAddress(const QString& address) override { script.openAddress(address); }
    void beep() override { script.beep(); }

    std::optional<QString> inputBox(const QString& prompt, const QString& title) override
    {
        return script.inputBox(prompt, title);
    }

    void showFormModal(const QString& name) override
    {
        if (name == "frmLogInOut" && atTheGate)
            atTheGate();
        else
            DesktopOperator::showFormModal(name);
    }

    platform::ScriptedOperator script;
    // What comes in while a box waits for its answer.
    std::function<void()> whileABoxStands;
    // Logs in without the window; without it the window comes up.
    std::function<void()> atTheGate;
};

// The whole program over the small company, in virtual time, with its real windows. Each test starts it.
class GuiFixture : public support::CompanyFixture
{
protected:
    GuiFixture()
    {
        desktop.atTheGate = [this] { enterAs(support::kTechnician); };
    }
    ~GuiFixture() override
    {
        EXPECT_EQ(desktop.script.unexpected, QStringList());
        EXPECT_TRUE(desktop.script.done()) << "a box or a file dialog was expected and did not appear";
    }

    // Starts as a second run does, on the company named, or on none.
    void start(const QString& company = "Plant.mdb")
    {
        session.DbName = company;
        session.COMPort = {};
        ASSERT_TRUE(session::Write_Configuration(session));
        ASSERT_TRUE(program.run());
        window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    }

    // Logs in as the operator of that number; where the company has none such, as its first.
    void enterAs(const QString& IDUser, const QString& password = {})
    {
        users::Login& login = program.login();
        login.Load();
        int chosen = 1;
        for (int entry = 1; entry < int(login.entries().size()); ++entry) {
            if (login.entries()[std::size_t(entry)].IDUser == IDUser)
                chosen = entry;
        }
        login.cmdConnect_Click(chosen, password);
    }

    program::frmMain* window() const { return qobject_cast<program::frmMain*>(desktop.form("frmMain")); }
    structure::NodeView* tvwBus() const { return window()->findChild<structure::NodeView*>("tvwBus"); }
    structure::ListBusView* lvwBus() const { return window()->findChild<structure::ListBusView*>("lvwBus"); }
    QAbstractItemView* shownList() const
    {
        return qobject_cast<QAbstractItemView*>(lvwBus()->currentWidget());
    }
    template <class Control>
    Control* control(const QString& name) const
    {
        return window()->findChild<Control*>(name);
    }
    // An entry of one child's menus.
    QAction* entry(const QString& form, const QString& name) const
    {
        return desktop.form(form)->findChild<QAction*>(name);
    }
    QAction* button(const QString& key) const
    {
        return window()->findChild<QWidget*>("tlbMain")->findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
    }
    structure::Structure& plant() { return program.structure(); }

    void clickNode(const QString& key)
    {
        const QModelIndex index = plant().tree().indexOf(key);
        tvwBus()->scrollTo(index);
        QTest::mouseClick(tvwBus()->viewport(), Qt::LeftButton, {}, tvwBus()->visualRect(index).center());
    }
    QPoint placeOf(const QString& itemKey)
    {
        const QModelIndex index = plant().list().index(plant().list().rowOf(itemKey), 0);
        return shownList()->visualRect(index).center();
    }
    QWidget* tree() const { return tvwBus()->viewport(); }
    QPoint placeOfNode(const QString& key)
    {
        const QModelIndex index = plant().tree().indexOf(key);
        tvwBus()->scrollTo(index);
        return tvwBus()->visualRect(index).center();
    }
    QPoint atNode(const QString& key) { return tree()->mapToGlobal(placeOfNode(key)); }
    // What the operator's hand does with the button held, in the places of a screen.
    void mouse(QEvent::Type type, QWidget* source, const QPoint& global, Qt::MouseButton button,
               Qt::KeyboardModifiers keys = {})
    {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, source->mapFromGlobal(global), global, button, held, keys);
        QApplication::sendEvent(source, &event);
    }
    void draw(QWidget* source, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys = {})
    {
        mouse(QEvent::MouseButtonPress, source, from, Qt::LeftButton, keys);
        mouse(QEvent::MouseMove, source, from + QPoint(1, 1), Qt::NoButton, keys);
        mouse(QEvent::MouseMove, source, to, Qt::NoButton, keys);
    }
    void drop(QWidget* source, const QPoint& at)
    {
        mouse(QEvent::MouseButtonRelease, source, at, Qt::LeftButton);
        QApplication::processEvents();
    }
    // What goes along with the pointer while something is drawn.
    QFrame* hint() const { return window()->findChild<QFrame*>("dragHint"); }

    void clickItem(const QString& key)
    {
        QTest::mouseClick(shownList()->viewport(), Qt::LeftButton, {}, placeOf(key));
    }
    void openItem(const QString& key)
    {
        clickItem(key);
        QTest::mouseDClick(shownList()->viewport(), Qt::LeftButton, {}, placeOf(key));
    }
    QStringList listKeys()
    {
        QStringList keys;
        for (int row = 0; row < plant().list().rowCount(); ++row)
            keys << plant().list().keyAt(row);
        return keys;
    }

    // Types over what stands in the field. Key events rather than keyClicks: those know Latin letters only.
    static void type(QLineEdit* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        for (const QChar character : text) {
            QKeyEvent event(QEvent::KeyPress, 0, {}, QString(character));
            QApplication::sendEvent(field, &event);
        }
    }
    // Plays the operator inside the next window of that name; a window still open at the end is closed.
    void inside(const QString& name, const std::function<void(QDialog&)>& work)
    {
        auto* waiting = new QTimer(this->window());
        QObject::connect(waiting, &QTimer::timeout, waiting, [this, waiting, name, work] {
            auto* dialog = qobject_cast<QDialog*>(desktop.form(name));
            if (!dialog || !dialog->isVisible())
                return;
            waiting->stop();
            ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
            ASSERT_TRUE(QTest::qWaitFor([dialog] {
                return dialog->isAncestorOf(QApplication::focusWidget());
            })) << "the focus never comes into the window";
            work(*dialog);
            ++played;
            if (dialog->isVisible())
                dialog->reject();
            waiting->deleteLater(); // not before: it holds what is still being played
        });
        waiting->start(0);
    }
    // Every text has the room it needs.
    static void nothingIsClipped(QWidget& form)
    {
        QApplication::processEvents(); // what is still to be laid out
        for (QWidget* part : form.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<QLabel*>(part);
            const auto* button = qobject_cast<QAbstractButton*>(part);
            const bool fixed = (button && !button->text().isEmpty()) || qobject_cast<QComboBox*>(part) ||
                               (label && !label->wordWrap() && label->pixmap(Qt::ReturnByValue).isNull() &&
                                label->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored);
            if (!part->isVisible() || !fixed)
                continue;
            // At a scale the toolkit rounds a size by one.
            EXPECT_GE(part->width() + 1, part->minimumSizeHint().width())
                << qPrintable(part->objectName()) << " in " << qPrintable(part->parentWidget()->objectName());
            EXPECT_GE(part->height(), part->minimumSizeHint().height()) << qPrintable(part->objectName());
            EXPECT_TRUE(part->parentWidget()->rect().contains(part->geometry()))
                << qPrintable(part->objectName());
        }
    }

    // A picture of a window, where somebody wants to look at it: the folder stands in CALIDORA_PICTURES.
    void picture(QWidget& form, const QString& name) const
    {
        const QString folder = qEnvironmentVariable("CALIDORA_PICTURES");
        if (folder.isEmpty())
            return;
        QApplication::processEvents();
        EXPECT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(form.grab().save(folder + '/' + session.Language.Code + '-' + name + ".png"));
    }

    int played = 0; // windows that inside() has played in
    ScriptedDesktop desktop{texts};
    platform::VirtualClock clock;
    platform::MemorySerialPort port{clock};
    platform::RecordingPrinters printers;
    program::Program program{{session, texts, desktop, clock, port, printers}};
};

} // namespace gui
