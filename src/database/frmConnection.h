#pragma once

#include <QDialog>

class QProgressBar;

namespace platform {
class Operator;
}
namespace session {
struct Session;
class Texts;
} // namespace session

namespace database {

// How far a connect has come. The connect holds the thread, so each step paints itself.
class frmConnection : public QDialog
{
    Q_OBJECT

public:
    frmConnection(const session::Session& session, const session::Texts& texts, platform::Operator& op);

public slots:
    void showProgress(int percent);

private:
    QProgressBar* prgLoad_;
};

} // namespace database
