#include "database/frmCopy.h"

#include "session/Session.h"
#include "session/Texts.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace database {

frmCopy::frmCopy(const session::Session& session, const session::Texts& texts)
    : prgCopy_(new QProgressBar(this))
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(session.AppTitle);
    auto* lblCopy = new QLabel(texts.own(QStringLiteral("copy.running")), this);
    lblCopy->setObjectName("lblCopy");
    prgCopy_->setObjectName("prgCopy");
    prgCopy_->setRange(0, 100);
    prgCopy_->setValue(0);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(8);
    layout->addWidget(lblCopy);
    layout->addWidget(prgCopy_);
    setFixedWidth(340);
}

void frmCopy::showProgress(int percent)
{
    prgCopy_->setValue(percent);
    repaint();
}

} // namespace database
