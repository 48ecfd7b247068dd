#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace users {

class Login;

// The login: who works with the open company from here on. Closed by its window button it leaves nobody
// logged in.
class frmLogInOut : public QDialog
{
    Q_OBJECT

public:
    frmLogInOut(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                Login& login);
    ~frmLogInOut() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeFields();
    QWidget* makeButtons();
    QPushButton* addButton(const char* name, int text, const QString& picture);
    void fillUsers();
    void connectUser();
    void showCapsLock();

    const session::Texts& texts_;
    Login& login_;
    QComboBox* cbxUser_ = nullptr;
    widgets::TextField* txtPwd_ = nullptr;
    QLabel* lblCapsLock_ = nullptr;
    QWidget* capsLock_ = nullptr;
};

} // namespace users
