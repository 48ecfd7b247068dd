#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>
#include <functional>
#include <vector>

namespace users {

// The gate of an open company, without its window: who may come in, and the three ways out.
class Login
{
public:
    // What the ways out lead to.
    struct Verbs
    {
        std::function<void()> loggedIn;
        std::function<void()> Disconnect_Database;
        std::function<void()> companyLost;
        std::function<void()> endProgram;
    };
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        Verbs verbs;
    };
    // A line of cbxUser.
    struct Entry
    {
        QString Name;
        QString IDUser;
    };

    explicit Login(Surroundings surroundings);

    // The window comes up: the operators who may log in, behind an empty line that is nobody.
    void Load();
    const std::vector<Entry>& entries() const { return entries_; }
    // The company's name as txtCompany shows it.
    QString company() const;

    // True when the operator is in; the window has gone then.
    bool cmdConnect_Click(int entry, const QString& password);
    void cmdDisconnect_Click();
    void cmdExit_Click();

    // Takes the operator of that number into the session, if the password is the stored one.
    bool SearchUser(const QString& IDUser, const QString& Password);

private:
    Surroundings with_;
    std::vector<Entry> entries_;
};

} // namespace users
