#include "dialogs/frmInfo.h"

#include "dialogs/Info.h"
#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace dialogs {

using platform::guarded;
using widgets::tagged;

frmInfo::frmInfo(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                 Info& info)
    : info_(info)
{
    setObjectName("frmInfo");
    setWindowTitle(session.AppTitle + QStringLiteral("\\Informazioni"));
    setProperty(widgets::kTag, "32");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* cmdSysInfo = new QPushButton(platform::icon("info"), texts.own("about.system"), this);
    cmdSysInfo->setObjectName("cmdSysInfo");
    cmdSysInfo->setAutoDefault(false);
    auto* cmdOK = tagged(new QPushButton(QStringLiteral("-"), this), "cmdOK", "13");
    cmdOK->setDefault(true);
    connect(cmdSysInfo, &QPushButton::clicked, this, [this] { info_.cmdSysInfo_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSysInfo);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(12);
    layout->addWidget(makeProgram());
    layout->addWidget(makeCompany());
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    widgets::Set_Language(*this, session, texts, op);
    cmdOK->setFocus(Qt::OtherFocusReason);
}

QWidget* frmInfo::makeProgram()
{
    auto* fraProgram = tagged(new QGroupBox(this), "fraProgram", "");
    auto* texts = new QVBoxLayout;
    QLabel* version = addLabel("lblPrgVer", fraProgram);
    QFont strong = version->font();
    strong.setBold(true);
    strong.setPointSizeF(strong.pointSizeF() * 1.15);
    version->setFont(strong);
    texts->addWidget(version);
    texts->addWidget(addLabel("lblCopyright", fraProgram));
    texts->addStretch();
    auto* line = new QHBoxLayout(fraProgram);
    line->setSpacing(14);
    line->addWidget(addPicture("imgProgram", "calidora", 64, fraProgram));
    line->addLayout(texts, 1);
    return fraProgram;
}

QWidget* frmInfo::makeCompany()
{
    auto* fraCompany = tagged(new QGroupBox(this), "fraCompany", "");
    auto* texts = new QVBoxLayout;
    texts->setSpacing(5);
    QLabel* name = addLabel("lblCompany", fraCompany);
    QFont strong = name->font();
    strong.setBold(true);
    name->setFont(strong);
    texts->addWidget(name);
    for (const char* line : {"lblAddress", "lblLocality", "lblCountry", "lblVATNumber", "lblPhoneFax"})
        texts->addWidget(addLabel(line, fraCompany));
    texts->addSpacing(6);
    texts->addWidget(addLink("lblEMail", fraCompany, &frmInfo::mailToMaker));
    texts->addWidget(addLink("lblWeb", fraCompany, &frmInfo::openWeb));
    texts->addWidget(addLink("lblSupportEMail", fraCompany, &frmInfo::mailToSupport));
    auto* pictures = new QVBoxLayout;
    pictures->addWidget(addPicture("imgLogo", "maker", 64, fraCompany));
    pictures->addStretch();
    auto* line = new QHBoxLayout(fraCompany);
    line->setSpacing(14);
    line->addLayout(pictures);
    line->addLayout(texts, 1);
    return fraCompany;
}

QLabel* frmInfo::addLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* frmInfo::addLink(const char* name, QWidget* parent, void (frmInfo::*follow)())
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::RichText);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label->setFocusPolicy(Qt::StrongFocus);
    connect(label, &QLabel::linkActivated, this, follow);
    return label;
}

QLabel* frmInfo::addPicture(const char* name, const char* icon, int size, QWidget* parent)
{
    auto* picture = new QLabel(parent);
    picture->setObjectName(name);
    picture->setPixmap(platform::icon(icon).pixmap(QSize(size, size), devicePixelRatio()));
    picture->setAlignment(Qt::AlignTop);
    return picture;
}

void frmInfo::showTexts()
{
    const auto set = [this](const char* name, const QString& text) {
        findChild<QLabel*>(name)->setText(text);
    };
    set("lblPrgVer", info_.lblPrgVer());
    set("lblCopyright", info_.lblCopyright());
    set("lblCompany", info_.lblCompany());
    set("lblAddress", info_.lblAddress());
    set("lblLocality", info_.lblLocality());
    set("lblCountry", info_.lblCountry());
    set("lblVATNumber", info_.lblVATNumber());
    set("lblPhoneFax", info_.lblPhoneFax());
    // The caption up to its colon stays plain, the address behind it is the link.
    const auto link = [&](const char* name, const QString& caption) {
        set(name, QStringLiteral("%1: <a href=\"#\">%2</a>")
                      .arg(caption.section(u':', 0, 0).toHtmlEscaped(),
                           caption.section(u':', 1).trimmed().toHtmlEscaped()));
    };
    link("lblEMail", info_.lblEMail());
    link("lblWeb", info_.lblWeb());
    link("lblSupportEMail", info_.lblSupportEMail());
}

void frmInfo::mailToMaker()
{
    info_.MailTo(info_.lblEMail());
}

void frmInfo::mailToSupport()
{
    info_.MailTo(info_.lblSupportEMail());
}

void frmInfo::openWeb()
{
    info_.lblWeb_Click();
}

void frmInfo::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        guarded("Module/Set_Language", [this] { showTexts(); });
}

frmSystemInfo::frmSystemInfo(const session::Session& session, const session::Texts& texts,
                             platform::Operator& op, const Info& info)
{
    setObjectName("frmSystemInfo");
    setWindowTitle(session.AppTitle + '\\' + texts.own("about.system"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* facts = new QPlainTextEdit(info.systemFacts(), this);
    facts->setObjectName("txtFacts");
    facts->setReadOnly(true);
    facts->setTabChangesFocus(true);
    facts->setLineWrapMode(QPlainTextEdit::NoWrap);
    facts->setMinimumSize(460, 190);
    auto* cmdCopy = new QPushButton(platform::icon("copy"), texts.own("about.copy"), this);
    cmdCopy->setObjectName("cmdCopy");
    cmdCopy->setAutoDefault(false);
    auto* cmdOK = tagged(new QPushButton(QStringLiteral("-"), this), "cmdOK", "13");
    cmdOK->setDefault(true);
    connect(cmdCopy, &QPushButton::clicked, this,
            [facts] { QApplication::clipboard()->setText(facts->toPlainText()); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCopy);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->addWidget(facts, 1);
    layout->addLayout(buttons);
    widgets::Set_Language(*this, session, texts, op);
}

} // namespace dialogs
