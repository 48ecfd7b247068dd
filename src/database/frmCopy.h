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

// How far the copy of a large database is. The copy holds the thread, so each step paints itself.
class frmCopy : public QDialog
{
    Q_OBJECT

public:
    frmCopy(const session::Session& session, const session::Texts& texts);

public slots:
    void showProgress(int percent);

private:
    QProgressBar* prgCopy_;
};

} // namespace database
