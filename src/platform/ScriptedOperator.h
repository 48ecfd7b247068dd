#pragma once

#include "platform/Operator.h"

#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

namespace platform {

// An operator who answers from a script, so that a box is answered before it appears. A question that the
// script does not expect is recorded in `unexpected` and answered with its safest button.
class ScriptedOperator : public Operator
{
public:
    struct Box
    {
        QString text;
        Buttons buttons;
        Icon icon;
        QString title;
    };

    // The next box must show this text and gets this answer.
    void expect(const QString& text, int answer = answers::kOk);
    // The next file dialog gives this name; an empty one is a cancel.
    void chooseFile(const QString& name, int filterIndex = 1) { files_.push_back({name, filterIndex}); }
    // The next input box is answered with this text; none is a cancel.
    void type(const std::optional<QString>& text) { inputs_.push_back(text); }
    bool done() const { return script_.empty() && files_.empty() && inputs_.empty(); }

    int messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
    int ask(const Question& question) override
    {
        questions.push_back(question);
        return messageBox(question.text, Buttons::YesNo, question.icon, question.title);
    }
    QString openFile(const FileRequest& request) override { return nextFile(request).name; }
    ChosenFile saveFile(const FileRequest& request) override { return nextFile(request); }
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    void openAddress(const QString& address) override { addresses << address; }
    void beep() override
    {
        ++beeps;
        if (onBeep)
            onBeep();
    }
    void showForm(const QString& name) override { forms << "show " + name; }
    void showFormModal(const QString& name) override;
    void unloadForm(const QString& name) override { forms << "unload " + name; }
    void unloadAllForms() override { forms << "unload all"; }
    void enableForm(const QString& name, bool enabled) override;
    void repaint() override {}
    bool escapePressed() override { return escapeAfter >= 0 && escapeAfter-- == 0; }

    std::vector<Box> boxes;          // every box that appeared
    std::vector<Question> questions; // those among the boxes that told more than their text
    std::vector<FileRequest> fileRequests;
    std::vector<std::pair<QString, QString>> inputBoxes; // prompt and title
    QStringList unexpected;                              // texts of boxes that no script expected
    QStringList forms;                                   // what was asked of the windows, in order
    QStringList addresses;                               // what the desktop was asked to open
    Pointer pointer = Pointer::Default;
    int beeps = 0;
    int escapeAfter = -1; // presses Escape when a job has asked so many times; -1 never
    // Plays the operator inside a modal window.
    std::function<void(const QString& form)> onModal;
    std::function<void()> onBeep;
    // What happens while a box stands.
    std::function<void(const QString& text)> onBox;

protected:
    void showPointer(Pointer shape) override { pointer = shape; }

private:
    ChosenFile nextFile(const FileRequest& request);

    std::deque<std::pair<QString, int>> script_;
    std::deque<ChosenFile> files_;
    std::deque<std::optional<QString>> inputs_;
};

} // namespace platform
