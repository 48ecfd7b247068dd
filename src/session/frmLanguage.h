#pragma once

#include <QDialog>

class QComboBox;

namespace platform {
class Operator;
}

namespace session {

struct Session;
class Texts;

// The choice of a language, on the first run.
class frmLanguage : public QDialog
{
    Q_OBJECT

public:
    frmLanguage(Session& session, const Texts& texts, platform::Operator& op);

private:
    void fillLanguages();
    void cmdApply_Click();

    Session& session_;
    const Texts& texts_;
    QComboBox* imcLanguage_;
};

} // namespace session
