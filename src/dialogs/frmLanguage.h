#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QComboBox;

namespace dialogs {

// The choice of a language, on the first run.
class frmLanguage : public QDialog
{
    Q_OBJECT

public:
    frmLanguage(session::Session& session, const session::Texts& texts, platform::Operator& op);

private:
    void fillLanguages();
    void cmdApply_Click();

    session::Session& session_;
    const session::Texts& texts_;
    QComboBox* imcLanguage_;
};

} // namespace dialogs
