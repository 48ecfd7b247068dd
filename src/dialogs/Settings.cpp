#include "dialogs/Settings.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Ports.h"
#include "session/Helpers.h"
#include "session/Texts.h"
#include "values/Numbers.h"

#include <QFileInfo>
#include <QStringBuilder>
#include <algorithm>

namespace dialogs {

using platform::guarded;
using session::COMPortSettings;

namespace {

constexpr int kPorts = 16;

// Puts the line's settings back on every way out.
class PortSettingsKept
{
public:
    PortSettingsKept(COMPortSettings& port, const Settings::Verbs& verbs)
        : port_(port), kept_(port), verbs_(verbs)
    {
    }
    ~PortSettingsKept()
    {
        port_ = kept_;
        verbs_.Set_COMPort();
    }
    PortSettingsKept(const PortSettingsKept&) = delete;
    PortSettingsKept& operator=(const PortSettingsKept&) = delete;

private:
    COMPortSettings& port_;
    const COMPortSettings kept_;
    const Settings::Verbs& verbs_;
};

} // namespace

const std::vector<CompanyText>& companyTexts()
{
    static const std::vector<CompanyText> kFields{
        {"txtCompany", "Company", 80, true},   {"txtAddress", "Address", 80, true},
        {"txtPostcode", "Postcode", 16, true}, {"txtLocality", "Locality", 80, true},
        {"txtCountry", "Country", 80, true},   {"txtPhone", "Phone", 20, true},
        {"txtFax", "Fax", 20, true},           {"txtEMail", "EMail", 80, false},
        {"txtWEB", "WEB", 80, false},          {"txtVATNumber", "VATNumber", 30, true},
    };
    return kFields;
}

const std::array<PortList, 6>& portLists()
{
    static const std::array<PortList, 6> kLists{{{"cbxPort", &COMPortSettings::Port, 0},
                                                 {"cbxSpeed", &COMPortSettings::Speed, 3},
                                                 {"cbxDataBit", &COMPortSettings::DataBit, 3},
                                                 {"cbxParity", &COMPortSettings::Parity, 2},
                                                 {"cbxStopBit", &COMPortSettings::StopBit, 0},
                                                 {"cbxFlowCtrl", &COMPortSettings::FlowCtrl, 0}}};
    return kLists;
}

Settings::Settings(Surroundings surroundings) : with_(std::move(surroundings)) {}

// Coming up and going
// ------------------------------------------------------------------------------------------------

void Settings::show()
{
    guarded("Module/Settings", [&] { with_.op.showFormModal(QStringLiteral("frmSettings")); });
    Unload();
}

void Settings::Load()
{
    guarded("frmSettings.Load", [&] {
        const session::Session& session = with_.session;
        portIsClosed_ = true;
        with_.verbs.Close_COMConnection();
        company_ = session.CompanySet;
        companyEnabled_ = !session.DbName.isEmpty() && session::rightOf(session.CurrentUser.Settings);
        delLog_ = session.LogSet.DelLog != 0;
        delLogErr_ = session.LogSet.DelLogRuntimeErr != 0;
        delLogApp_ = session.LogSet.DelLogInstErr != 0;
        logDetails_ = delLog_;
        days_ = QString::number(session.LogSet.LogDays);
        port_ = session.COMPort;
        changed_ = false;
        languages_.clear();
        language_ = -1;
        for (int row = 1; with_.texts.common(row) != QLatin1String("End_Language"); ++row) {
            languages_.push_back(session::LanguageSettings::fromIdentifier(with_.texts.common(row)));
            if (languages_.back().ID == session.Language.ID)
                language_ = row - 1;
        }
    });
}

void Settings::Unload()
{
    if (!std::exchange(portIsClosed_, false))
        return;
    guarded("frmSettings.Unload", [&] { with_.verbs.Open_COMConnection(); });
}

// The fields
// -----------------------------------------------------------------------------------------------------------

void Settings::markChanged()
{
    changed_ = true;
    emit changed();
}

void Settings::setCompanyText(int field, const QString& text)
{
    if (!companyEnabled_)
        return;
    company_[std::size_t(field)] = text;
    markChanged();
}

void Settings::chooseLanguage(const QString& identifier)
{
    if (identifier == with_.session.Language.ID)
        return;
    with_.verbs.SetLanguage_AllForms(identifier);
    Reload_Db();
    with_.verbs.Write_Configuration();
}

void Settings::setLanguage(int index)
{
    language_ = index;
    markChanged();
}

void Settings::chkDelLog_Click(bool checked)
{
    delLog_ = checked;
    logDetails_ = !logDetails_;
    markChanged();
}

void Settings::chkDelLogErr_Click(bool checked)
{
    delLogErr_ = checked;
    markChanged();
}

void Settings::chkDelLogApp_Click(bool checked)
{
    delLogApp_ = checked;
    markChanged();
}

void Settings::setQtyDays(const QString& text)
{
    days_ = text;
    markChanged();
}

void Settings::updQtyDays_Change(int steps)
{
    const int days = values::isNumeric(days_) ? int(values::toNumber(days_)) : 0;
    const QString stepped = QString::number(std::clamp(days + steps, kFewestDays, kMostDays));
    if (stepped != days_)
        setQtyDays(stepped);
}

std::optional<QString> Settings::filterDays(const QString& typed)
{
    if (std::all_of(typed.begin(), typed.end(), [](QChar key) { return key >= u'0' && key <= u'9'; }))
        return typed;
    with_.op.beep();
    return std::nullopt;
}

bool Settings::txtQtyDays_Validate()
{
    return guarded("frmSettings.txtQtyDays_Validate", [&] {
        int refusal = 0;
        if (!values::isNumeric(days_))
            refusal = 516;
        else if (const double days = values::toNumber(days_); days < kFewestDays || days > kMostDays)
            refusal = 517;
        if (refusal != 0)
            with_.op.messageBox(with_.texts(refusal), platform::Buttons::Ok, platform::Icon::Exclamation,
                                with_.session.AppTitle);
        return refusal == 0;
    });
}

// The line
// -----------------------------------------------------------------------------------------------------------

QStringList Settings::portEntries(int list) const
{
    const auto words = [this](std::initializer_list<int> texts) {
        QStringList entries;
        for (const int text : texts)
            entries << with_.texts(text);
        return entries;
    };
    switch (list) {
    case 0: {
        QStringList names;
        for (int number = 1; number <= kPorts; ++number)
            names << u"COM" % QString::number(number);
        return names;
    }
    case 1:
        return {"300",   "600",   "1200",   "2400",   "4800",   "9600",  "19200",
                "38400", "57600", "115200", "230400", "460800", "921600"};
    case 2:
        return {"5", "6", "7", "8"};
    case 3:
        return words({256, 257, 258, 259, 260});
    case 4:
        return {"1", "1.5", "2"};
    default:
        return words({261, 262, 263});
    }
}

std::vector<PortChoice> Settings::ports() const
{
    std::vector<PortChoice> ports;
    const QStringList names = portEntries(0);
    for (int index = 0; index < kPorts; ++index) {
        const QFileInfo file(platform::deviceOfPort(with_.session.AppPath, index + 1));
        const bool linked = file.isSymLink();
        ports.push_back({names[index], linked ? file.symLinkTarget() : file.filePath(), file.exists()});
    }
    return ports;
}

void Settings::setPortIndex(int list, int index)
{
    port_.*portLists()[std::size_t(list)].field = qint16(index);
    markChanged();
}

void Settings::cmdReset_Click()
{
    for (const PortList& list : portLists())
        port_.*list.field = list.standard;
    markChanged();
}

void Settings::cmdTest_Click()
{
    guarded("frmSettings.cmdTest_Click", [&] {
        bool opened = false;
        {
            const PortSettingsKept kept(with_.session.COMPort, with_.verbs);
            Update_COMPortSet();
            opened = with_.verbs.Set_COMPort() && with_.verbs.Open_COMConnection();
            with_.verbs.Close_COMConnection();
        }
        if (opened)
            with_.op.messageBox(with_.texts(576), platform::Buttons::Ok, platform::Icon::Information,
                                with_.session.AppTitle);
    });
}

// The state of the line is no setting.
void Settings::Update_COMPortSet()
{
    for (const PortList& list : portLists())
        with_.session.COMPort.*list.field = port_.*list.field;
}

// The log files
// -----------------------------------------------------------------------------------------------------------

void Settings::cmdDelLog_Click()
{
    with_.verbs.Delete_Log(true, false);
}

void Settings::cmdDelAllLog_Click()
{
    with_.verbs.Delete_Log(true, true);
}

// Storing
// -----------------------------------------------------------------------------------------------------------

bool Settings::cmdApply_Click()
{
    return guarded("frmSettings.cmdApply_Click", [&] {
        if (changed_ && !store())
            return false;
        changed_ = false;
        emit changed();
        return true;
    });
}

bool Settings::cmdOK_Click()
{
    return guarded("frmSettings.cmdOK_Click", [&] { return !changed_ || store(); });
}

bool Settings::store()
{
    if (!with_.session.DbName.isEmpty() && !Update_CompanySet())
        return false;
    if (!Update_LogSet())
        return false;
    Update_COMPortSet();
    with_.verbs.Set_COMPort();
    if (language_ >= 0 && languages_[std::size_t(language_)].ID != with_.session.Language.ID) {
        with_.verbs.SetLanguage_AllForms(languages_[std::size_t(language_)].ID);
        Reload_Db();
    }
    with_.verbs.Write_Configuration();
    return true;
}

bool Settings::Update_CompanySet()
{
    return guarded("frmSettings/Update_CompanySet", [&] {
        if (!companyEnabled_)
            return true;
        QStringList pairs;
        for (std::size_t field = 0; field < company_.size(); ++field)
            pairs << QLatin1String(companyTexts()[field].column) % u" = " %
                         session::composeTextOrNull(company_[field]);
        with_.session.cnDatabase.Execute(u"UPDATE tbCompanySettings SET " % pairs.join(u", "));
        with_.session.CompanySet = company_;
        return true;
    });
}

bool Settings::Update_LogSet()
{
    if (!txtQtyDays_Validate())
        return false;
    session::LogSettings& log = with_.session.LogSet;
    log.LogDays = qint16(values::toNumber(days_));
    log.DelLog = delLog_ ? -1 : 0;
    log.DelLogRuntimeErr = delLogErr_ ? -1 : 0;
    log.DelLogInstErr = delLogApp_ ? -1 : 0;
    return true;
}

// The descriptions of the catalogue are those of the language: the company is connected anew.
void Settings::Reload_Db()
{
    guarded("frmSettings/Reload_Db", [&] {
        session::Session& session = with_.session;
        const QString name = session.DbName;
        if (name.isEmpty())
            return;
        with_.verbs.Disconnect_Database();
        session.DbName = name;
        if (with_.verbs.Connect_Database(session.dbFile())) {
            with_.verbs.companyReloaded();
        } else {
            with_.verbs.Disconnect_Database();
            with_.verbs.companyLost();
        }
    });
}

} // namespace dialogs
