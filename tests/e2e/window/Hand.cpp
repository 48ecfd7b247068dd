#include "e2e/window/Hand.h"

#include "bus/StatusPanels.h"
#include "line/Picture.h"
#include "program/frmMain.h"
#include "structure/Jump.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

namespace window {

using line::What;

namespace {
constexpr int kPatienceMs = 10000;
constexpr int kLookMs = 3000;
} // namespace

int WatchedDesktop::messageBox(const QString& text, platform::Buttons buttons, platform::Icon icon,
                               const QString& title)
{
    ++boxes;
    onOpens();
    const int answer = DesktopOperator::messageBox(text, buttons, icon, title);
    --boxes;
    onClosed();
    return answer;
}

int WatchedDesktop::ask(const platform::Question& question)
{
    ++boxes;
    onOpens();
    const int answer = DesktopOperator::ask(question);
    --boxes;
    onClosed();
    return answer;
}

void WatchedDesktop::showFormModal(const QString& name)
{
    if (name == "frmLogInOut")
        return atTheGate();
    const bool box = name == "frmMessage";
    boxes += box;
    onOpens();
    DesktopOperator::showFormModal(name);
    boxes -= box;
    onClosed();
}

Hand::Hand(const Place& place) : with_(place)
{
    next_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, &Hand::step);
    with_.desktop.onOpens = [this] {
        busy_.push_back(false);
        next_.start(0);
    };
    with_.desktop.onClosed = [this] {
        busy_.pop_back();
        closing_ = false;
        next_.start(0);
    };
}

QString Hand::play(const Drawn& drawn)
{
    drawn_ = &drawn;
    next_.start(0);
    loop_.exec();
    return trouble_;
}

// A step that still works, behind a window that has just got its answer or in front of one that is open, is
// let finish first.
void Hand::step()
{
    if (closing_ || busy_.back())
        return;
    busy_.back() = true;
    const std::size_t level = busy_.size();
    settle();
    if (trouble_.isEmpty()) {
        const Shown& expected = at_ < drawn_->steps.size() ? drawn_->steps[at_].before : drawn_->end;
        // The console has a look at some of it once a second.
        Shown now = shown();
        const QDeadlineTimer look(kLookMs);
        while (now != expected && !look.hasExpired()) {
            QTest::qWait(20);
            now = shown();
        }
        if (now != expected)
            trouble_ =
                QStringLiteral("before step %1, %2:\n  drawn: %3\n  seen:  %4")
                    .arg(at_ + 1)
                    .arg(at_ < drawn_->steps.size() ? line::nameOf(drawn_->steps[at_].event) : "the end",
                         words(expected), words(now));
    }
    const bool over = !trouble_.isEmpty() || at_ == drawn_->steps.size();
    if (over && level > 1)
        giveUp();
    else if (over)
        loop_.quit();
    else
        perform(drawn_->steps[at_++]);
    busy_[level - 1] = false;
    if (!closing_)
        next_.start(0);
}

void Hand::perform(const Step& step)
{
    using enum What;
    switch (step.event.what) {
    case CloseConsole:
        closing_ = true;
        return press("Exit");
    case Simulator:
        return press("Simulator");
    case AutoDisconnect:
        return press("AutoDisconnect");
    case Connect:
        return press("Connect");
    case Disconnect:
        return press("Disconnect");
    case Read:
        return press("Read");
    case Write:
        return press("Write");
    case Escape:
        return QTest::keyClick(console()->findChild<QTreeView*>("lvwItems"), Qt::Key_Escape);
    case Yes:
    case No:
    case Cancel:
    case Ok:
        return answer(step.event.what);
    case Acknowledge:
        with_.program.handlers().run("Allarms");
        return;
    case Vanish:
        with_.far.pullOut();
        said_ = with_.port.came;
        if (!QTest::qWaitFor([this] { return with_.session.COMPort.Status == session::kPortClosed; },
                             kPatienceMs))
            trouble_ = QStringLiteral("nobody hears that the port is gone");
        return;
    default:
        break;
    }
    if (step.lasts > 0 || (step.event.what >= DueAction && step.event.what <= Silence))
        with_.clock.run(step.lasts);
    else if (line::isArrival(step.event.what)) {
        said_ += step.comes.size();
        with_.far.say(step.comes);
        // The program hears of them in their turn, as in the world: a tick that is due may find them first.
        with_.clock.post([this] { settle(); });
        with_.clock.settle();
    } else
        open(line::keyOf(step.event.what));
}

void Hand::open(const QString& key)
{
    with_.session.cnDatabase.Execute(line::kWorldEdit);
    structure::jumpTo(with_.program.structure(), key);
    with_.program.handlers().run("ReadWrite");
}

void Hand::press(const char* name)
{
    button(name)->trigger();
    if (!closing_)
        settle();
}

void Hand::answer(What what)
{
    QWidget* box = QApplication::activeModalWidget();
    const char* const name = what == What::Yes      ? "common.yes"
                             : what == What::No     ? "common.no"
                             : what == What::Cancel ? "common.cancel"
                                                    : "common.ok";
    auto* button = box ? box->findChild<QPushButton*>(name) : nullptr;
    if (!button && box)
        button = box->findChild<QPushButton*>("cmdOK");
    if (!button) {
        trouble_ = QStringLiteral("before step %1: no button %2").arg(at_).arg(name);
        return;
    }
    closing_ = true;
    button->click();
}

// Whatever stands open goes.
void Hand::giveUp()
{
    closing_ = true;
    if (QWidget* top = QApplication::activeModalWidget()) {
        top->setProperty(platform::kClosedByProgram, true);
        top->close();
    }
}

// Until the program has taken all that came, and nothing is queued any more.
void Hand::settle()
{
    const std::size_t level = busy_.size();
    const QDeadlineTimer patience(kPatienceMs);
    const auto waits = [this] { return with_.port.PortOpen() && with_.port.came < said_; };
    do {
        for (int turn = 0; turn < 4 && !closing_; ++turn)
            QApplication::processEvents(QEventLoop::AllEvents);
    } while (waits() && !closing_ && busy_.size() == level && !patience.hasExpired());
}

Shown Hand::shown()
{
    const bus::StatusPanels& panels = with_.program.panels();
    const auto* info = with_.desktop.form("frmMain")->findChild<QWidget*>("Info")->findChild<QLabel*>("text");
    const bus::Bus& bus = with_.program.bus();
    Shown shown{with_.session.COMPort.Status,
                line::nameOf(bus.actionCode()),
                panels.picture(bus::Panel::COMSet),
                panels.picture(bus::Panel::Allarm),
                info->text(),
                with_.desktop.boxes,
                console() != nullptr,
                {},
                with_.far.heard()};
    if (console() && !bus.isCallTaken()) {
        std::vector<std::pair<const char*, bool>> buttons;
        for (const char* name :
             {"Connect", "Disconnect", "AutoDisconnect", "Simulator", "Read", "Write", "Exit"})
            buttons.emplace_back(name, button(name)->isEnabled());
        shown.buttons = pressable(buttons);
    }
    return shown;
}

QDialog* Hand::console() const
{
    auto* dialog = qobject_cast<QDialog*>(with_.desktop.form("frmReadWrite"));
    return dialog && dialog->isVisible() ? dialog : nullptr;
}

QAction* Hand::button(const char* name) const
{
    return console()->findChild<QToolBar*>("tlbMain")->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

} // namespace window
