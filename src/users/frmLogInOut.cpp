#include "users/frmLogInOut.h"

#include "platform/widgets/Icons.h"
#include "platform/widgets/KeyLocks.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "users/Login.h"
#include "widgets/FormLanguage.h"
#include "widgets/TextField.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace users {

using platform::icon;
using widgets::tagged;
using widgets::TextField;

namespace {

constexpr int kPasswordLimit = 8;
constexpr int kFieldWidth = 300;

QString minus(int text)
{
    return QString::number(-text);
}

} // namespace

frmLogInOut::frmLogInOut(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                         Login& login)
    : texts_(texts), login_(login)
{
    setObjectName("frmLogInOut");
    setWindowTitle(session.AppTitle + "\\Login-Logout");
    setProperty(widgets::kTag, "33");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 16, 18, 16);
    layout->setSpacing(16);
    layout->addWidget(makeFields());
    layout->addWidget(makeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);

    login_.Load();
    fillUsers();
    widgets::Set_Language(*this, session, texts, op);
    showCapsLock();
    qApp->installEventFilter(this);
    cbxUser_->setFocus(Qt::OtherFocusReason);
}

frmLogInOut::~frmLogInOut() = default;

QWidget* frmLogInOut::makeFields()
{
    auto* fields = new QWidget(this);
    auto* picture = new QLabel(fields);
    picture->setPixmap(icon("enter").pixmap(QSize(48, 48), devicePixelRatio()));

    auto* txtCompany = tagged(new QLineEdit(login_.company(), fields), "txtCompany", "39");
    txtCompany->setReadOnly(true);
    txtCompany->setFocusPolicy(Qt::NoFocus);
    txtCompany->setCursorPosition(0);
    cbxUser_ = tagged(new QComboBox(fields), "cbxUser", "35");
    cbxUser_->setMaxVisibleItems(16);
    txtPwd_ = tagged(new TextField("txtPwd", kPasswordLimit, {}, fields), "txtPwd", "37");
    txtPwd_->setEchoMode(QLineEdit::Password);
    txtPwd_->setStyleSheet("QLineEdit { lineedit-password-character: 42; }");

    capsLock_ = new QWidget(fields);
    capsLock_->setObjectName("capsLock");
    auto* line = new QHBoxLayout(capsLock_);
    line->setContentsMargins({});
    auto* warning = new QLabel(capsLock_);
    warning->setPixmap(icon("warning").pixmap(QSize(16, 16), devicePixelRatio()));
    lblCapsLock_ = new QLabel(capsLock_);
    lblCapsLock_->setObjectName("lblCapsLock");
    line->addWidget(warning);
    line->addWidget(lblCapsLock_, 1);
    // Its place stays when it hides, so that nothing jumps under the hands.
    QSizePolicy keep = capsLock_->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    capsLock_->setSizePolicy(keep);

    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(12);
    grid->setColumnMinimumWidth(2, kFieldWidth);
    grid->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
    const auto row = [&](int at, const char* name, int text, QWidget* field) {
        auto* label = tagged(new QLabel("-", fields), name, minus(text));
        label->setBuddy(field);
        grid->addWidget(label, at, 1);
        grid->addWidget(field, at, 2);
    };
    row(0, "lblCompany", 38, txtCompany);
    row(1, "lblUser", 34, cbxUser_);
    row(2, "lblPwd", 36, txtPwd_);
    grid->addWidget(capsLock_, 3, 2);
    return fields;
}

QWidget* frmLogInOut::makeButtons()
{
    auto* buttons = new QWidget(this);
    auto* cmdExit = addButton("cmdExit", 44, "exit");
    auto* cmdDisconnect = addButton("cmdDisconnect", 42, "close-db");
    auto* cmdConnect = addButton("cmdConnect", 40, "enter");
    cmdConnect->setDefault(true);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins({});
    line->addWidget(cmdExit);
    line->addStretch();
    line->addWidget(cmdDisconnect);
    line->addWidget(cmdConnect);
    setTabOrder(cmdConnect, cmdDisconnect);
    setTabOrder(cmdDisconnect, cmdExit);
    connect(cmdConnect, &QPushButton::clicked, this, &frmLogInOut::connectUser);
    connect(cmdDisconnect, &QPushButton::clicked, this, [this] { login_.cmdDisconnect_Click(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { login_.cmdExit_Click(); });
    return buttons;
}

QPushButton* frmLogInOut::addButton(const char* name, int text, const QString& picture)
{
    auto* button = tagged(new QPushButton(icon(picture), "-", this), name, minus(text));
    button->setAutoDefault(false);
    return button;
}

void frmLogInOut::fillUsers()
{
    for (const Login::Entry& entry : login_.entries())
        cbxUser_->addItem(entry.Name);
    cbxUser_->setCurrentIndex(0);
}

void frmLogInOut::connectUser()
{
    if (login_.cmdConnect_Click(cbxUser_->currentIndex(), txtPwd_->text()))
        return;
    QWidget* again = cbxUser_->currentIndex() > 0 ? static_cast<QWidget*>(txtPwd_) : cbxUser_;
    again->setFocus(Qt::OtherFocusReason);
    txtPwd_->selectAll();
}

void frmLogInOut::showCapsLock()
{
    capsLock_->setVisible(platform::keyLockOn("capslock"));
}

bool frmLogInOut::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyRelease || event->type() == QEvent::ApplicationActivate)
        showCapsLock();
    const bool enter =
        event->type() == QEvent::KeyPress && (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                                              static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    if (enter && watched == cbxUser_) {
        txtPwd_->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (enter && watched == txtPwd_) {
        connectUser();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmLogInOut::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        lblCapsLock_->setText(texts_.own("login.capslock"));
}

} // namespace users
