#include "events/frmReadLogFiles.h"

#include "session/Session.h"
#include "widgets/FormLanguage.h"

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QVBoxLayout>

namespace events {

frmReadLogFiles::frmReadLogFiles(const session::Session& session, const session::Texts& texts,
                                 platform::Operator& op)
    : txtFileName_(new QLineEdit(this)), prgLoad_(new QProgressBar(this))
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(session.AppTitle);
    auto* lblWarning = widgets::tagged(new QLabel("-", this), "lblWarning", "144");
    txtFileName_->setObjectName("txtFileName");
    txtFileName_->setReadOnly(true);
    txtFileName_->setFocusPolicy(Qt::NoFocus);
    prgLoad_->setObjectName("prgLoad");
    prgLoad_->setRange(0, 100);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(8);
    layout->addWidget(lblWarning);
    layout->addWidget(txtFileName_);
    layout->addWidget(prgLoad_);
    setFixedWidth(420);
    widgets::Set_Language(*this, session, texts, op);
}

void frmReadLogFiles::showFile(int percent, const QString& shown)
{
    txtFileName_->setText(shown);
    prgLoad_->setValue(percent);
    repaint();
}

} // namespace events
