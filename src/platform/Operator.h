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

// The answer to a question.
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
    int filterIndex = 1; // the filter that is chosen at first, counted from 1
};

struct ChosenFile
{
    QString name;
    int filterIndex = 1; // the filter that was chosen with it
};

// A question that Yes or No answers.
struct Question
{
    QString text;
    QString more = {}; // in smaller words under the text: what it is about; "" for none
    Icon icon = Icon::Question;
    QString title = {};
    bool destroys = false; // with Yes something is lost: No is what Enter means
};

// The person at the machine: asked, shown things, kept waiting. The one door from the logic to the windows.
class Operator
{
public:
    virtual ~Operator() = default;

    // Shows a modal box and returns one of `answers`.
    virtual int messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title) = 0;
    // The same for a question that tells more than its text.
    virtual int ask(const Question& question)
    {
        return messageBox(question.text, Buttons::YesNo, question.icon, question.title);
    }
    // The whole name of the chosen file; a cancel is RuntimeError 32755.
    virtual QString openFile(const FileRequest& request) = 0;
    // The same for a file to be written. A name typed without its ending has that of the chosen filter, and
    // the operator has agreed to replace a file that exists.
    virtual ChosenFile saveFile(const FileRequest& request) = 0;
    // A line of text that the operator types; none when the box is cancelled.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;
    // Has the desktop open an address: "mailto:help@example.org", "www.example.org". No program for it fails.
    virtual void openAddress(const QString& address) = 0;
    // The pointer between the jobs; a job's hourglass covers it.
    void setPointer(Pointer pointer);
    virtual void beep() = 0;

    // Windows by name ("frmReadWrite"). A modal one returns when it has closed.
    virtual void showForm(const QString& name) = 0;
    virtual void showFormModal(const QString& name) = 0;
    virtual void unloadForm(const QString& name) = 0;
    // Unloads every window but the main one and its two children.
    virtual void unloadAllForms() = 0;
    // Whether the window takes input at all.
    virtual void enableForm(const QString& name, bool enabled) = 0;
    // Asked by a long job from time to time: whether the operator has pressed Escape. Other keys and clicks
    // that came meanwhile are dropped; nothing else of the program runs.
    virtual bool escapePressed() { return false; }
    // Paints what is due before a long job holds the thread.
    virtual void repaint() = 0;

protected:
    // The shape that the operator sees from now on; called when it changes.
    virtual void showPointer(Pointer pointer) = 0;

private:
    friend class BusyPointer;
    friend class DialogPointer;
    void setJobs(int jobs);

    Pointer resting_ = Pointer::Default;
    Pointer shown_ = Pointer::Default;
    int jobs_ = 0; // that run at this moment, one inside the other
};

// The hourglass of a long job. Jobs nest: it stands until the outermost has ended.
class BusyPointer
{
public:
    explicit BusyPointer(Operator& op) : operator_(op) { operator_.setJobs(operator_.jobs_ + 1); }
    ~BusyPointer() { operator_.setJobs(operator_.jobs_ - 1); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Operator& operator_;
};

// A dialog stands over the jobs that called it up: it takes the pointer that is shown between them, and gives
// theirs back when it has closed.
class DialogPointer
{
public:
    explicit DialogPointer(Operator& op) : operator_(op), jobs_(op.jobs_) { operator_.setJobs(0); }
    ~DialogPointer() { operator_.setJobs(jobs_); }
    DialogPointer(const DialogPointer&) = delete;
    DialogPointer& operator=(const DialogPointer&) = delete;

private:
    Operator& operator_;
    const int jobs_;
};

} // namespace platform
