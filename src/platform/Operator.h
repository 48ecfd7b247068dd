#pragma once

#include <QString>
#include <optional>

namespace platform {

enum class Icon
{
    None,
    Critical,
    Question,
    Exclamation,
    Information
};
enum class Buttons
{
    Ok,
    YesNo,
    YesNoCancel
};
enum class Pointer
{
    Default = 0,
    Hourglass = 11,
    ArrowHourglass = 13
};

// The answer to a question, with the numbers that `Answer` is compared with.
namespace answers {
constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kYes = 6;
constexpr int kNo = 7;
} // namespace answers

struct FileRequest
{
    QString title;
    QString filter; // "Access (*.mdb)|*.mdb"
    QString fileName;
    QString folder;
};

// The person at the machine: asked, shown things, kept waiting. The one door from the logic to the windows.
class Operator
{
public:
    virtual ~Operator() = default;

    // Shows a modal box and returns one of `answers`.
    virtual int messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title) = 0;
    // The whole name of the chosen file; a cancel is RuntimeError 32755.
    virtual QString openFile(const FileRequest& request) = 0;
    virtual QString saveFile(const FileRequest& request) = 0;
    // A line of text that the operator types; none when the box is cancelled.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    virtual void beep() = 0;

    // Windows by name ("frmReadWrite"). A modal one returns when it has closed.
    virtual void showForm(const QString& name) = 0;
    virtual void showFormModal(const QString& name) = 0;
    virtual void unloadForm(const QString& name) = 0;
    // Unloads every window but the main one and its two children.
    virtual void unloadAllForms() = 0;
    // Whether the window takes input at all.
    virtual void enableForm(const QString& name, bool enabled) = 0;
    // Paints what is due before a long job holds the thread.
    virtual void repaint() = 0;
};

// The pointer shape of a long job; the default comes back on every way out.
class BusyPointer
{
public:
    explicit BusyPointer(Operator& op) : operator_(op) { operator_.setPointer(Pointer::Hourglass); }
    ~BusyPointer() { operator_.setPointer(Pointer::Default); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Operator& operator_;
};

} // namespace platform
