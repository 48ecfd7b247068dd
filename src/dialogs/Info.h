#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>
#include <functional>

namespace dialogs {

// What the program is, who makes it and how to reach its support, without the window.
class Info
{
public:
    // The desktop's tool that tells about the machine, and how it is started.
    struct Desktop
    {
        std::function<QString()> systemTool;
        std::function<void(const QString& tool)> startProgram;
    };
    struct Surroundings
    {
        const session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        const platform::Machine& machine;
        Desktop desktop;
    };

    explicit Info(Surroundings surroundings);

    QString lblPrgVer() const;
    QString lblCopyright() const;
    QString lblCompany() const;
    QString lblAddress() const;
    QString lblLocality() const;
    QString lblCountry() const;
    QString lblVATNumber() const;
    QString lblPhoneFax() const;
    QString lblEMail() const;
    QString lblWeb() const;
    QString lblSupportEMail() const;

    // A click on a link: the address is what stands behind the caption's ":".
    void MailTo(const QString& caption);
    void lblWeb_Click();
    // The desktop's tool or, without one, a window of this program's own.
    void cmdSysInfo_Click();
    // The machine's facts, a line each, as a failure report tells them.
    QString systemFacts() const;

private:
    QString row(int id) const;

    Surroundings with_;
};

} // namespace dialogs
