#include "dialogs/Info.h"

#include "events/SystemInfo.h"
#include "platform/Guard.h"
#include "platform/Machine.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QLocale>
#include <QStringBuilder>

namespace dialogs {

using platform::guarded;

namespace {

// The maker's data, the same in every language.
enum MakerRow
{
    kCompany = 50,
    kStreet = 55,
    kTown = 60,
    kCountry = 65,
    kVATNumber = 70,
    kTelephone = 75,
    kFax = 80,
    kEMail = 85,
    kWebAddress = 90,
    kSupportEMail = 100
};

QString addressBehindColon(const QString& caption)
{
    return caption.section(u':', 1).trimmed();
}

QString megaBytes(int kiloBytes)
{
    return QLocale::c().toString(kiloBytes / 1024);
}

} // namespace

Info::Info(Surroundings surroundings) : with_(std::move(surroundings)) {}

QString Info::row(int id) const
{
    return with_.texts.common(id);
}

QString Info::lblPrgVer() const
{
    QString version = with_.session.ExeName % u" ver. " % QStringLiteral(CALIDORA_VERSION);
    if (!with_.session.DbVersion.isEmpty())
        version += u"  (database ver. " % with_.session.DbVersion % u')';
    return version;
}

QString Info::lblCopyright() const
{
    return u"\u00A9 " % row(kCompany) % u' ' % with_.texts(0);
}

QString Info::lblCompany() const
{
    return row(kCompany);
}

QString Info::lblAddress() const
{
    return row(kStreet);
}

QString Info::lblLocality() const
{
    return row(kTown);
}

QString Info::lblCountry() const
{
    return row(kCountry);
}

QString Info::lblVATNumber() const
{
    return with_.texts(10) % u' ' % row(kVATNumber);
}

QString Info::lblPhoneFax() const
{
    return with_.texts(session::rows::kPhoneLabel) % u' ' % row(kTelephone) % u" - " % with_.texts(7) % u' ' %
           row(kFax);
}

QString Info::lblEMail() const
{
    return with_.texts(8) % u' ' % row(kEMail);
}

QString Info::lblWeb() const
{
    return with_.texts(9) % u' ' % row(kWebAddress);
}

QString Info::lblSupportEMail() const
{
    return with_.texts(284) % u' ' % row(kSupportEMail);
}

void Info::MailTo(const QString& caption)
{
    guarded("frmInfo/MailTo",
            [&] { with_.op.openAddress(QStringLiteral("mailto:") % addressBehindColon(caption)); });
}

void Info::lblWeb_Click()
{
    guarded("frmInfo.lblWeb_Click", [&] { with_.op.openAddress(addressBehindColon(lblWeb())); });
}

void Info::cmdSysInfo_Click()
{
    guarded("frmInfo.cmdSysInfo_Click", [&] {
        if (const QString tool = with_.desktop.systemTool(); !tool.isEmpty())
            with_.desktop.startProgram(tool);
        else
            with_.op.showFormModal(QStringLiteral("frmSystemInfo"));
    });
}

QString Info::systemFacts() const
{
    const events::cSystemInfo info(with_.machine);
    const auto fact = [this](const char* key, const QString& value) -> QString {
        return with_.texts.own(QLatin1String(key)) % u' ' % value;
    };
    const auto memory = [this](int available, int total) {
        return with_.texts.own(QStringLiteral("system.available"))
            .arg(megaBytes(available), megaBytes(total));
    };
    return QStringList{
        lblPrgVer(),
        fact("system.os", info.osName().trimmed()),
        fact("system.kernel", info.osVersion()),
        fact("system.cpu", info.cpuName()),
        fact("system.desktop", info.shellVersion()),
        fact("system.physical", memory(info.availablePhysicalMemory(), info.totalPhysicalMemory())),
        fact("system.virtual", memory(info.availableVirtualMemory(), info.totalVirtualMemory())),
        fact("system.folder", with_.session.AppPath),
    }
        .join(u'\n');
}

} // namespace dialogs
