#include "database/frmConnection.h"

#include "session/Session.h"
#include "widgets/FormLanguage.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace database {

frmConnection::frmConnection(const session::Session& session, const session::Texts& texts,
                             platform::Operator& op)
    : prgLoad_(new QProgressBar(this))
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(session.AppTitle);
    auto* lblConnection = widgets::tagged(new QLabel("-", this), "lblConnection", "143");
    prgLoad_->setObjectName("prgLoad");
    prgLoad_->setRange(0, 100);
    prgLoad_->setValue(0);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(8);
    layout->addWidget(lblConnection);
    layout->addWidget(prgLoad_);
    setFixedWidth(340);
    widgets::Set_Language(*this, session, texts, op);
}

void frmConnection::showProgress(int percent)
{
    prgLoad_->setValue(percent);
    repaint();
}

} // namespace database
