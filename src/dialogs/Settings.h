#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "session/Session.h"

#include <QObject>
#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace dialogs {

// A text of the company: its control, its column, how much it holds. What is typed into most is raised.
struct CompanyText
{
    const char* control;
    const char* column;
    int limit;
    bool capitals;
};
// By session::CompanyField.
const std::vector<CompanyText>& companyTexts();

// One of the six lists of the line's settings, in the order of the record.
struct PortList
{
    const char* control;
    qint16 session::COMPortSettings::*field;
    qint16 standard;
};
const std::array<PortList, 6>& portLists();

// A name of cbxPort, and what stands behind it on this machine at this moment.
struct PortChoice
{
    QString name;
    QString device; // "" where the machine has none for the name
    bool present;
};

constexpr int kFewestDays = 1;
constexpr int kMostDays = 365;

// The settings without their window: what the fields hold, and what becomes of it.
class Settings : public QObject
{
    Q_OBJECT

public:
    struct Verbs
    {
        std::function<bool()> Set_COMPort;
        std::function<bool()> Open_COMConnection;
        std::function<bool()> Close_COMConnection;
        std::function<bool()> Write_Configuration;
        std::function<void(bool enabled, bool all)> Delete_Log;
        std::function<void(const QString& identifier)> SetLanguage_AllForms;
        std::function<bool(const QString& path)> Connect_Database;
        std::function<void()> Disconnect_Database;
        std::function<void()> companyReloaded;
        std::function<void()> companyLost;
    };
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        Verbs verbs;
    };

    explicit Settings(Surroundings surroundings);

    // Shows the window; the port is closed as long as it stands, and opened again whatever happened.
    void show();
    void Load();
    void Unload();

    // What the fields hold.
    const QString& companyText(int field) const { return company_[std::size_t(field)]; }
    bool companyEnabled() const { return companyEnabled_; }
    const std::vector<session::LanguageSettings>& languages() const { return languages_; }
    int language() const { return language_; }
    bool DelLog() const { return delLog_; }
    bool DelLogErr() const { return delLogErr_; }
    bool DelLogApp() const { return delLogApp_; }
    const QString& QtyDays() const { return days_; }
    // The flags of the two kinds, and the days.
    bool logDetailsEnabled() const { return logDetails_; }
    bool cmdDelLogEnabled() const { return logDetails_ && (delLogErr_ || delLogApp_); }
    int portIndex(int list) const { return port_.*portLists()[std::size_t(list)].field; }
    QStringList portEntries(int list) const;
    std::vector<PortChoice> ports() const;
    bool Changed() const { return changed_; }

    // The operator's own changes.
    void setCompanyText(int field, const QString& text);
    void setLanguage(int index);
    // Takes a language at once, without the window.
    void chooseLanguage(const QString& identifier);
    void chkDelLog_Click(bool checked);
    void chkDelLogErr_Click(bool checked);
    void chkDelLogApp_Click(bool checked);
    void setQtyDays(const QString& text);
    void updQtyDays_Change(int steps);
    void setPortIndex(int list, int index);
    // A digit, or none: any other key beeps.
    std::optional<QString> filterDays(const QString& typed);

    // False after the refusal; the focus stays then.
    bool txtQtyDays_Validate();
    void cmdReset_Click();
    void cmdTest_Click();
    void cmdDelLog_Click();
    void cmdDelAllLog_Click();
    bool cmdApply_Click();
    // Whether the window may go.
    bool cmdOK_Click();

signals:
    void changed();

private:
    bool store();
    bool Update_CompanySet();
    bool Update_LogSet();
    void Update_COMPortSet();
    void Reload_Db();
    void markChanged();

    Surroundings with_;
    std::array<QString, 10> company_;
    bool companyEnabled_ = false;
    std::vector<session::LanguageSettings> languages_;
    int language_ = -1;
    bool delLog_ = false, delLogErr_ = false, delLogApp_ = false;
    bool logDetails_ = false;
    QString days_;
    session::COMPortSettings port_;
    bool changed_ = false;
    bool portIsClosed_ = false; // by this window
};

} // namespace dialogs
