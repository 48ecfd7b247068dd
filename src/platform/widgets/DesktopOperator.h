#pragma once

#include "platform/Operator.h"
#include "platform/widgets/InsideScreen.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

namespace platform {

// A window closed by the program, not by the operator, carries this property while its closeEvent runs.
inline constexpr char kClosedByProgram[] = "ClosedByProgram";

// The person at the desktop: Qt's dialogs, and the program's windows by name.
//
// A window exists once, is made on first use by its factory and is destroyed when it is unloaded. The main
// window's two children are adopted instead: they belong to it.
class DesktopOperator : public Operator
{
public:
    using Factory = std::function<QWidget*()>;
    // A word of the current language by name: "common.yes".
    using Words = std::function<QString(const QString& key)>;

    explicit DesktopOperator(Words words) : words_(std::move(words)) {}
    ~DesktopOperator() override;

    void registerForm(const QString& name, Factory factory) { factories_[name] = std::move(factory); }
    void adoptForm(const QString& name, QWidget* window) { adopted_[name] = window; }
    QStringList registeredForms() const;
    // The window of that name when it is loaded, else null.
    QWidget* form(const QString& name) const;
    // Every window that is loaded, adopted ones first.
    QList<QWidget*> loadedForms() const;
    // No window outlives what it shows: whoever registered the forms destroys them before he goes.
    void destroyForms();

    int messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
    int ask(const Question& question) override;
    QString openFile(const FileRequest& request) override;
    ChosenFile saveFile(const FileRequest& request) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    void openAddress(const QString& address) override;
    void beep() override;
    // A window that has no factory fails.
    void showForm(const QString& name) override;
    void showFormModal(const QString& name) override;
    void unloadForm(const QString& name) override;
    void unloadAllForms() override;
    void enableForm(const QString& name, bool enabled) override;
    bool escapePressed() override;
    void repaint() override;

protected:
    void showPointer(Pointer pointer) override;

private:
    int box(const Question& question, Buttons buttons);
    QWidget* load(const QString& name);
    bool awaitsItsScreen() const;
    QWidget* owner() const;
    ChosenFile chooseFile(const FileRequest& request, bool save);

    Words words_;
    std::map<QString, Factory> factories_;
    std::map<QString, QPointer<QWidget>> adopted_;
    std::map<QString, QPointer<QWidget>> loaded_;
    InsideScreen insideScreen_;
    Pointer pointer_ = Pointer::Default;
};

// The filters of a file dialog, "Text (*.txt)|*.txt|All|*.*", as Qt writes them.
QStringList nameFilters(const QString& filter);

} // namespace platform
