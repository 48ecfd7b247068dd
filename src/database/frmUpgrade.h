#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace database {

class CompanyUpgrade;
class CopyAnimation;

// The window of an upgrade: which step it is at, and the two buttons. The upgrade holds the thread, so each
// step paints itself.
class frmUpgrade : public QDialog
{
    Q_OBJECT

public:
    frmUpgrade(const session::Session& session, const session::Texts& texts, platform::Operator& op,
               CompanyUpgrade& upgrade);

    void reject() override;

private:
    void layOut();
    void listen();
    void start();

    CompanyUpgrade& upgrade_;
    CopyAnimation* anmUpgrade_;
    QLabel* lblOperation_;
    QLabel* lblTable_;
    QProgressBar* prgUpgrade_;
    QProgressBar* prgFile_;
    QPushButton* cmdUpgrade_;
    QPushButton* cmdCancel_;
};

} // namespace database
