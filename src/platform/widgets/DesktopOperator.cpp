#include "platform/widgets/DesktopOperator.h"

#include "platform/RuntimeError.h"
#include "platform/widgets/EscapeKey.h"
#include "platform/widgets/FileWords.h"
#include "platform/widgets/Icons.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
#include <QTreeView>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr int kLongestExposure = 500; // milliseconds
constexpr int kInputWidth = 360;

struct BoxButton
{
    int answer;
    const char* word;
    QMessageBox::ButtonRole role;
};

std::vector<BoxButton> buttonsOf(Buttons buttons)
{
    const BoxButton yes{answers::kYes, "common.yes", QMessageBox::YesRole};
    const BoxButton no{answers::kNo, "common.no", QMessageBox::NoRole};
    const BoxButton cancel{answers::kCancel, "common.cancel", QMessageBox::RejectRole};
    switch (buttons) {
    case Buttons::YesNo:
        return {yes, no};
    case Buttons::YesNoCancel:
        return {yes, no, cancel};
    default:
        return {{answers::kOk, "common.ok", QMessageBox::AcceptRole}};
    }
}

QString pictureOf(Icon icon)
{
    switch (icon) {
    case Icon::Critical:
        return "error";
    case Icon::Question:
        return "question";
    case Icon::Exclamation:
        return "warning";
    case Icon::Information:
        return "info";
    default:
        return {};
    }
}

// "txt" for the first pattern, "*.txt", of a filter as Qt writes it; "" for one that takes every ending.
QString endingOf(const QString& nameFilter)
{
    const QString pattern = nameFilter.section("(*.", -1).section(' ', 0, 0).section(')', 0, 0);
    return pattern == "*" ? QString() : pattern;
}

// Under the text; a name such as "<B>NORTH</B>" in it is no markup.
void showMore(QMessageBox& box, const QString& words)
{
    box.setInformativeText(words);
    if (auto* label = box.findChild<QLabel*>("qt_msgbox_informativelabel"))
        label->setTextFormat(Qt::PlainText);
}

} // namespace

DesktopOperator::~DesktopOperator()
{
    DesktopOperator::showPointer(Pointer::Default); // it is the whole application's
    destroyForms();
}

void DesktopOperator::destroyForms()
{
    // Those that are closed wait for the loop to destroy them.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const auto& [name, window] : std::exchange(loaded_, {}))
        delete window;
}

QWidget* DesktopOperator::form(const QString& name) const
{
    for (const auto* windows : {&adopted_, &loaded_}) {
        const auto found = windows->find(name);
        if (found != windows->end() && found->second)
            return found->second;
    }
    return nullptr;
}

QStringList DesktopOperator::registeredForms() const
{
    QStringList names;
    for (const auto& [name, factory] : factories_)
        names << name;
    return names;
}

QList<QWidget*> DesktopOperator::loadedForms() const
{
    QList<QWidget*> forms;
    for (const auto* windows : {&adopted_, &loaded_}) {
        for (const auto& [name, window] : *windows) {
            if (window)
                forms << window;
        }
    }
    return forms;
}

int DesktopOperator::messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title)
{
    return box({text, {}, icon, title}, buttons);
}

int DesktopOperator::ask(const Question& question)
{
    return box(question, Buttons::YesNo);
}

int DesktopOperator::box(const Question& question, Buttons buttons)
{
    const DialogPointer plain(*this);
    QMessageBox box(owner());
    box.setObjectName("messageBox");
    box.setWindowTitle(question.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(question.text).replace("\r\n", "\n"));
    if (!question.more.isEmpty())
        showMore(box, question.more);
    if (const QString picture = pictureOf(question.icon); !picture.isEmpty())
        box.setIconPixmap(platform::icon(picture).pixmap(QSize(40, 40), box.devicePixelRatio()));

    std::map<QAbstractButton*, int> answerOf;
    for (const BoxButton& button : buttonsOf(buttons)) {
        QPushButton* added = box.addButton(words_(button.word), button.role);
        added->setObjectName(button.word);
        answerOf[added] = button.answer;
        if (button.answer == (question.destroys ? answers::kNo : answers::kYes) ||
            button.answer == answers::kOk)
            box.setDefaultButton(added);
        // Escape and the close box mean the last button: Cancel, else No, else OK.
        box.setEscapeButton(added);
    }
    box.exec();
    const auto answered = answerOf.find(box.clickedButton());
    return answered == answerOf.end() ? answers::kCancel : answered->second;
}

namespace {

// Size, kind and date are as wide as what they hold; the name has the rest.
void giveColumnsRoom(QFileDialog& dialog)
{
    const auto* list = dialog.findChild<QTreeView*>();
    if (!list)
        return;
    const int digit = dialog.fontMetrics().horizontalAdvance(u'0');
    int others = 0;
    for (const auto& [column, digits] : {std::pair(1, 11), std::pair(2, 16), std::pair(3, 18)}) {
        list->header()->resizeSection(column, digits * digit);
        others += digits * digit;
    }
    dialog.resize(std::max(dialog.width(), others + 55 * digit), dialog.height());
}

} // namespace

QString DesktopOperator::openFile(const FileRequest& request)
{
    return chooseFile(request, false).name;
}

ChosenFile DesktopOperator::saveFile(const FileRequest& request)
{
    return chooseFile(request, true);
}

ChosenFile DesktopOperator::chooseFile(const FileRequest& request, bool save)
{
    const DialogPointer plain(*this);
    const QStringList filters = nameFilters(request.filter);
    QFileDialog dialog(owner(), request.title, request.folder);
    dialog.setProxyModel(new FileWords(&dialog));
    giveColumnsRoom(dialog);
    dialog.setNameFilters(filters);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setLabelText(QFileDialog::Accept, words_(save ? "file.save" : "file.open"));
    dialog.setLabelText(QFileDialog::Reject, words_("common.cancel"));
    dialog.setLabelText(QFileDialog::LookIn, words_("file.folder"));
    dialog.setLabelText(QFileDialog::FileName, words_("file.name"));
    dialog.setLabelText(QFileDialog::FileType, words_("file.type"));
    if (save) {
        const auto takeEnding = [&](const QString& filter) { dialog.setDefaultSuffix(endingOf(filter)); };
        takeEnding(filters.value(request.filterIndex - 1));
        QObject::connect(&dialog, &QFileDialog::filterSelected, takeEnding);
    }
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        fail(errors::kCancelled, words_("file.cancelled"));
    return {dialog.selectedFiles().constFirst(), int(filters.indexOf(dialog.selectedNameFilter())) + 1};
}

std::optional<QString> DesktopOperator::inputBox(const QString& prompt, const QString& title)
{
    const DialogPointer plain(*this);
    QInputDialog box(owner());
    box.setObjectName("inputBox");
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setInputMode(QInputDialog::TextInput);
    box.setOkButtonText(words_("common.ok"));
    box.setCancelButtonText(words_("common.cancel"));
    box.setMinimumWidth(kInputWidth);
    if (box.exec() != QDialog::Accepted)
        return std::nullopt;
    return box.textValue();
}

void DesktopOperator::openAddress(const QString& address)
{
    if (!QDesktopServices::openUrl(QUrl::fromUserInput(address)))
        fail(errors::kFileNotFound, words_("address.noprogram").arg(address));
}

void DesktopOperator::showPointer(Pointer pointer)
{
    if (std::exchange(pointer_, pointer) != Pointer::Default)
        QApplication::restoreOverrideCursor();
    if (pointer != Pointer::Default)
        QApplication::setOverrideCursor(pointer == Pointer::Hourglass ? Qt::WaitCursor : Qt::BusyCursor);
}

void DesktopOperator::beep()
{
    QApplication::beep();
}

void DesktopOperator::showForm(const QString& name)
{
    QWidget* window = load(name);
    window->show();
    window->raise();
    window->activateWindow();
}

void DesktopOperator::showFormModal(const QString& name)
{
    const DialogPointer plain(*this);
    QPointer<QWidget> window = load(name);
    if (auto* dialog = qobject_cast<QDialog*>(window)) {
        dialog->exec();
    } else {
        QEventLoop untilClosed;
        window->setWindowModality(Qt::ApplicationModal);
        window->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(window, &QObject::destroyed, &untilClosed, &QEventLoop::quit);
        window->show();
        untilClosed.exec();
    }
    delete window;
    loaded_.erase(name);
}

void DesktopOperator::unloadForm(const QString& name)
{
    QPointer<QWidget> window = form(name);
    if (!window)
        return;
    window->setProperty(kClosedByProgram, true);
    const bool closed = window->close();
    if (window)
        window->setProperty(kClosedByProgram, QVariant());
    const auto found = loaded_.find(name);
    if (found == loaded_.end() || !closed)
        return;
    // A modal window is destroyed by the call that showed it.
    if (window && !window->isModal())
        window->deleteLater();
    loaded_.erase(found);
}

void DesktopOperator::unloadAllForms()
{
    static const QStringList kStaying{"frmListBus", "frmTreeBus", "frmMain"};
    QStringList names;
    for (const auto& [name, window] : loaded_) {
        if (!kStaying.contains(name))
            names << name;
    }
    for (const QString& name : names)
        unloadForm(name);
}

void DesktopOperator::enableForm(const QString& name, bool enabled)
{
    if (QWidget* window = form(name))
        window->setEnabled(enabled);
}

bool DesktopOperator::escapePressed()
{
    return takeEscape();
}

void DesktopOperator::repaint()
{
    // A window that was just shown may paint only when the screen has answered, which takes a moment.
    QElapsedTimer waiting;
    waiting.start();
    do {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
        if (!awaitsItsScreen())
            return;
        QThread::msleep(5);
    } while (waiting.elapsed() < kLongestExposure);
}

bool DesktopOperator::awaitsItsScreen() const
{
    return std::any_of(loaded_.begin(), loaded_.end(), [](const auto& named) {
        const QWidget* window = named.second;
        return window && window->isVisible() && window->windowHandle() &&
               !window->windowHandle()->isExposed();
    });
}

QWidget* DesktopOperator::load(const QString& name)
{
    if (QWidget* window = form(name))
        return window;
    const auto factory = factories_.find(name);
    if (factory == factories_.end())
        fail(errors::kInvalidCall, QStringLiteral("There is no window %1.").arg(name));
    QWidget* window = factory->second();
    window->setObjectName(name);
    loaded_[name] = window;
    // A dialog stands over the window that called it up; the main window's icon and stacking are its own
    // then.
    if (QWidget* above = owner(); above && above != window && qobject_cast<QDialog*>(window))
        window->setParent(above, window->windowFlags());
    window->installEventFilter(&insideScreen_);
    return window;
}

QWidget* DesktopOperator::owner() const
{
    if (QWidget* active = QApplication::activeModalWidget())
        return active;
    QWidget* main = form("frmMain");
    return main && main->isVisible() ? main : nullptr;
}

QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(';', ' ');
        // The words in front often name the pattern already.
        const QString words = parts[i].section(" (*", 0, 0);
        filters << QStringLiteral("%1 (%2)").arg(words, patterns);
    }
    return filters;
}

} // namespace platform
