#include "dialogs/frmMessage.h"

#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "widgets/FormLanguage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace dialogs {

namespace {

constexpr qsizetype kCallsShown = 8;

// The last calls; that there are more is told by dots above them.
QStringList shortened(const QStringList& calls)
{
    if (calls.size() <= kCallsShown)
        return calls;
    return QStringList{QStringLiteral("...")} + calls.mid(calls.size() - kCallsShown);
}

} // namespace

frmMessage::frmMessage(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                       const QStringList& calls)
{
    setWindowTitle(session.AppTitle);
    auto* imgMsg = new QLabel(this);
    imgMsg->setObjectName("imgMsg");
    imgMsg->setPixmap(platform::icon("alarm").pixmap(QSize(48, 48), devicePixelRatio()));
    auto* lblMsg = widgets::tagged(new QLabel("-", this), "lblMsg", "582");
    auto* lblMsgDetail = widgets::tagged(new QLabel("-", this), "lblMsgDetail", "585");
    QFont strong = lblMsg->font();
    strong.setBold(true);
    lblMsg->setFont(strong);
    auto* lblCalls = new QLabel(shortened(calls).join('\n'), this);
    lblCalls->setObjectName("lblCalls");
    lblCalls->setTextFormat(Qt::PlainText);
    lblCalls->setVisible(!calls.isEmpty());
    auto* cmdOK = widgets::tagged(new QPushButton("-", this), "cmdOK", "13");
    cmdOK->setDefault(true);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setHorizontalSpacing(16);
    layout->addWidget(imgMsg, 0, 0, 3, 1, Qt::AlignTop);
    layout->addWidget(lblMsg, 0, 1);
    layout->addWidget(lblCalls, 1, 1);
    layout->addWidget(lblMsgDetail, 2, 1);
    layout->addWidget(cmdOK, 3, 0, 1, 2, Qt::AlignRight);
    layout->setRowMinimumHeight(3, 44);
    layout->setColumnStretch(1, 1);
    // The window is as large as its words.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    widgets::Set_Language(*this, session, texts, op);
}

} // namespace dialogs
