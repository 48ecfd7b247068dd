#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QLineEdit;
class QProgressBar;

namespace events {

// Which log file the purge looks at. The purge holds the thread, so each file paints itself.
class frmReadLogFiles : public QDialog
{
    Q_OBJECT

public:
    frmReadLogFiles(const session::Session& session, const session::Texts& texts, platform::Operator& op);

    void showFile(int percent, const QString& shown);

private:
    QLineEdit* txtFileName_;
    QProgressBar* prgLoad_;
};

} // namespace events
