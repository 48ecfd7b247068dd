#include "database/frmUpgrade.h"

#include "database/CompanyUpgrade.h"
#include "database/widgets/CopyAnimation.h"
#include "session/Session.h"
#include "widgets/FormLanguage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace database {

frmUpgrade::frmUpgrade(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                       CompanyUpgrade& upgrade)
    : upgrade_(upgrade), anmUpgrade_(new CopyAnimation(this)), lblOperation_(new QLabel(this)),
      lblTable_(new QLabel(this)), prgUpgrade_(new QProgressBar(this)), prgFile_(new QProgressBar(this)),
      cmdUpgrade_(widgets::tagged(new QPushButton("-", this), "cmdUpgrade", "-192")),
      cmdCancel_(widgets::tagged(new QPushButton("-", this), "cmdCancel", "-194"))
{
    setWindowTitle(session.AppTitle + "\\Aggiornamento Database");
    layOut();
    listen();
    widgets::Set_Language(*this, session, texts, op);
}

void frmUpgrade::layOut()
{
    anmUpgrade_->setObjectName("anmUpgrade");
    lblOperation_->setObjectName("lblOperation");
    lblTable_->setObjectName("lblTable");
    for (QLabel* label : {lblOperation_, lblTable_})
        label->setTextFormat(Qt::PlainText);
    lblOperation_->setWordWrap(true);
    prgUpgrade_->setObjectName("prgUpgrade");
    prgUpgrade_->setValue(0);
    // How far the file is that is being copied: a thin line under the steps.
    prgFile_->setObjectName("prgFile");
    prgFile_->setTextVisible(false);
    prgFile_->setFixedHeight(5);
    prgFile_->setValue(0);
    cmdUpgrade_->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdUpgrade_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(anmUpgrade_);
    layout->addSpacing(6);
    layout->addWidget(lblOperation_);
    layout->addWidget(lblTable_);
    layout->addWidget(prgUpgrade_);
    layout->addWidget(prgFile_);
    layout->addSpacing(10);
    layout->addLayout(buttons);
    setFixedWidth(440);
}

void frmUpgrade::listen()
{
    connect(cmdUpgrade_, &QPushButton::clicked, this, &frmUpgrade::start);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmUpgrade::reject);
    connect(&upgrade_, &CompanyUpgrade::finished, this, &QDialog::accept);
    connect(&upgrade_, &CompanyUpgrade::animated, this, [this](bool on) { anmUpgrade_->setRunning(on); });
    connect(&upgrade_, &CompanyUpgrade::working, anmUpgrade_, &CopyAnimation::advance);
    connect(&upgrade_, &CompanyUpgrade::operationChanged, this, [this](const QString& operation) {
        lblOperation_->setText(operation);
        prgFile_->setValue(0);
        repaint();
    });
    connect(&upgrade_, &CompanyUpgrade::tableChanged, this, [this](const QString& table) {
        lblTable_->setText(table);
        repaint();
    });
    connect(&upgrade_, &CompanyUpgrade::progress, this, [this](int percent) {
        prgUpgrade_->setValue(percent);
        repaint();
    });
    connect(&upgrade_, &CompanyUpgrade::copyProgress, this, [this](int percent) {
        prgFile_->setValue(percent);
        prgFile_->repaint();
        anmUpgrade_->advance();
    });
}

void frmUpgrade::start()
{
    // What is clicked or typed while it works must not begin it again or seem to stop it.
    cmdUpgrade_->setEnabled(false);
    cmdCancel_->setEnabled(false);
    repaint();
    upgrade_.cmdUpgrade_Click();
}

// Escape and the close box are a cancel as well, as long as nothing has been begun.
void frmUpgrade::reject()
{
    if (cmdCancel_->isEnabled())
        upgrade_.cmdCancel_Click();
}

} // namespace database
