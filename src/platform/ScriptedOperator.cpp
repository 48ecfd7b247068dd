#include "platform/ScriptedOperator.h"

#include "platform/RuntimeError.h"

namespace platform {

void ScriptedOperator::expect(const QString& text, int answer)
{
    script_.emplace_back(text, answer);
}

int ScriptedOperator::messageBox(const QString& text, Buttons buttons, Icon icon, const QString& title)
{
    boxes.push_back({text, buttons, icon, title});
    if (onBox)
        onBox(text);
    if (!script_.empty() && script_.front().first == text) {
        const int answer = script_.front().second;
        script_.pop_front();
        return answer;
    }
    unexpected << text;
    switch (buttons) {
    case Buttons::YesNo:
        return answers::kNo;
    case Buttons::YesNoCancel:
        return answers::kCancel;
    default:
        return answers::kOk;
    }
}

std::optional<QString> ScriptedOperator::inputBox(const QString& prompt, const QString& title)
{
    inputBoxes.emplace_back(prompt, title);
    if (inputs_.empty()) {
        unexpected << prompt;
        return std::nullopt;
    }
    const std::optional<QString> typed = inputs_.front();
    inputs_.pop_front();
    return typed;
}

void ScriptedOperator::showFormModal(const QString& name)
{
    forms << "modal " + name;
    if (onModal)
        onModal(name);
}

void ScriptedOperator::enableForm(const QString& name, bool enabled)
{
    forms << (enabled ? "enable " : "disable ") + name;
}

ChosenFile ScriptedOperator::nextFile(const FileRequest& request)
{
    fileRequests.push_back(request);
    const ChosenFile file = files_.empty() ? ChosenFile() : files_.front();
    if (!files_.empty())
        files_.pop_front();
    if (file.name.isEmpty())
        fail(errors::kCancelled, QStringLiteral("Cancel was selected."));
    return file;
}

} // namespace platform
